#include "platform/registry.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace quorvane {

namespace {

constexpr const wchar_t* TestSection = L"Software\\VB and VBA Program Settings\\Quorvane\\Test";

class Registry : public testing::Test {
protected:
    Registry() { RegDeleteKeyW(HKEY_CURRENT_USER, TestSection); }
    ~Registry() override { RegDeleteKeyW(HKEY_CURRENT_USER, TestSection); }
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;
};

TEST_F(Registry, MissingValueGivesTheFallback) { EXPECT_EQ(ReadSetting("Test", "Type", "0"), "0"); }

TEST_F(Registry, KeepsWhatWasWrittenWhereProgramsOfTheFamilyLook) {
    WriteSetting("Test", "Type", "3");
    EXPECT_EQ(ReadSetting("Test", "Type", "0"), "3");
    wchar_t value[16] = {};
    DWORD size = sizeof value;
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, TestSection, L"Type", RRF_RT_REG_SZ, nullptr, value, &size),
              ERROR_SUCCESS);
    EXPECT_STREQ(value, L"3");
}

TEST_F(Registry, OtherKeysOfTheSectionStay) {
    WriteSetting("Test", "Colour", "grün");
    WriteSetting("Test", "Type", "3");
    WriteSetting("Test", "Type", "4");
    EXPECT_EQ(ReadSetting("Test", "Colour", ""), "grün");
    EXPECT_EQ(ReadSetting("Test", "Type", "0"), "4");
}

} // namespace

} // namespace quorvane
