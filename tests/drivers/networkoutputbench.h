// The built-in output, heard by a socket on loopback. The time is moved by hand.
#pragma once

#include "drivers/network_output.h"

#include <QNetworkDatagram>
#include <QTest>
#include <QUdpSocket>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

inline constexpr Cid TestCid = {0xC1, 0xD0, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};

// Where the fields stand that these tests look at.
inline constexpr int SacnPriority = 108, SacnSequence = 111, SacnOptions = 112, SacnUniverseLow = 114,
                     SacnChannel1 = 126;
inline constexpr int ArtNetSequence = 12, ArtNetChannel1 = 18;

inline int Byte(const QByteArray& packet, int at) { return static_cast<unsigned char>(packet[at]); }

class NetworkOutputBench : public QObject {
protected:
    std::unique_ptr<QUdpSocket> receiver;
    std::vector<std::string> reports;
    std::int64_t now = 0; // milliseconds
    std::array<std::uint8_t, 512> frame{};

    std::unique_ptr<NetworkOutput> MakeOutput(const OutputSettings& settings = {}) {
        return std::make_unique<NetworkOutput>(
            settings, TestCid,
            NetworkOutput::Surroundings{
                .Report = [this](std::string_view text) { reports.emplace_back(text); },
                .Seconds = [this] { return static_cast<double>(now) / 1000.0; },
                .Port = receiver->localPort()});
    }

    static OutputSettings ArtNet() {
        OutputSettings settings;
        settings.Protocol = OutputProtocol::ArtNet;
        settings.Universe = 0;
        return settings;
    }

    // As the program initialises a USB interface, and as its clock sends a frame.
    static int Initialise(NetworkOutput& output) {
        std::uint8_t byte = 0;
        output.HardCommand(2, 0, &byte);
        const int kind = output.HardCommand(1, 0, &byte);
        output.HardCommand(3, 0, &byte);
        return kind;
    }

    int Send(NetworkOutput& output, std::uint8_t level) {
        frame.fill(level);
        std::uint8_t byte = 0;
        output.HardCommand(5, 0, &byte);
        return output.HardCommand(4, 512, frame.data());
    }

    // What has arrived since the last call. A packet to loopback is there when its send call returns.
    std::vector<QByteArray> Received() {
        std::vector<QByteArray> packets;
        while (receiver->hasPendingDatagrams()) packets.push_back(receiver->receiveDatagram().data());
        return packets;
    }

    // Time goes by in steps as the event loop would take them.
    void Pass(NetworkOutput& output, int milliseconds) {
        for (const std::int64_t end = now + milliseconds; now < end;) {
            now += 10;
            output.Service();
        }
    }

    // Before each test.
    void Listen() {
        receiver = std::make_unique<QUdpSocket>();
        QVERIFY(receiver->bind(QHostAddress(QHostAddress::LocalHost), 0));
        reports.clear();
        now = 1'000'000;
    }
};

} // namespace quorvane
