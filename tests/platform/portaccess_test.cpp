#include "platform/portaccess.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace quorvane {

namespace {

TEST(PortAccess, KnowsThePortsOfCardsAndAdapterOnly) {
    struct Case {
        std::uint32_t Port;
        bool Ours;
    };
    for (const auto& [port, ours] : {Case{0, false}, Case{0xFF, false}, Case{0x100, true}, Case{0x163, true},
                                     Case{0x164, false}, Case{0x1FF, false}, Case{0x200, true},
                                     Case{0x203, true}, Case{0x204, false}, Case{0x10100, false}}) {
        SCOPED_TRACE(port);
        EXPECT_EQ(IsDmxPort(port), ours);
    }
}

TEST(PortAccess, OtherPortsAreNeverTouched) {
    PortAccess ports;
    for (const std::uint32_t port : {0x60U, 0x80U, 0x164U, 0x3F8U, 0x10100U}) {
        ports.Write(port, 0);
        EXPECT_EQ(ports.Read(port), 255);
    }
}

#ifndef _WIN32

// In a process of its own, which gives up what rights it may have.
TEST(PortAccess, WithoutTheRightReads255AndWritesGoNowhere) {
    const auto asOrdinaryUser = [] {
        if (geteuid() == 0 && setuid(65534) != 0) _exit(2);
        PortAccess ports;
        ports.Write(0x100, 1);
        _exit(ports.Read(0x100) == 255 && ports.Read(0x203) == 255 ? 0 : 1);
    };
    EXPECT_EXIT(asOrdinaryUser(), testing::ExitedWithCode(0), "");
}

#endif

} // namespace

} // namespace quorvane
