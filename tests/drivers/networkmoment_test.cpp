// Frames that leave the built-in output at a moment of their own. The moment is brought about by hand.
#include "drivers/networkoutputbench.h"

#include <optional>

using namespace quorvane;

class NetworkMomentTest : public NetworkOutputBench {
    Q_OBJECT

    std::unique_ptr<NetworkOutput> output;
    std::optional<double> waitsFor; // of the frame that the output gave away to be sent
    int asked = 0;                  // how often it asked for one at once

    void Begin(const OutputSettings& settings = {}) {
        waitsFor.reset();
        asked = 0;
        output = std::make_unique<NetworkOutput>(
            settings, TestCid,
            NetworkOutput::Surroundings{
                .Report = [this](std::string_view text) { reports.emplace_back(text); },
                .Seconds = [this] { return static_cast<double>(now) / 1000.0; },
                .Port = receiver->localPort(),
                .SendAt = [this](double moment) { waitsFor = moment; },
                .SendNow =
                    [this] {
                        ++asked;
                        MomentComes();
                    }});
        Initialise(*output);
    }

    void MomentComes() {
        if (!waitsFor) return;
        waitsFor.reset();
        output->SendWaiting();
    }

    int SendDated(std::uint8_t level, double moment) {
        output->DateNextFrame(moment);
        return Send(*output, level);
    }

    std::vector<int> Levels(int channel1 = SacnChannel1) {
        std::vector<int> levels;
        for (const QByteArray& packet : Received()) levels.push_back(Byte(packet, channel1));
        return levels;
    }

    static OutputSettings Unreachable() {
        OutputSettings settings;
        settings.NetworkCard = "lo";
        settings.Address = "192.0.2.1"; // an address that no house has, and not behind this card
        return settings;
    }

private slots:
    void init() { Listen(); }
    void cleanup() {
        output->Finish();
        output.reset();
    }

    void DatedFrameLeavesAtItsMomentAndNotBefore_data() {
        QTest::addColumn<bool>("artNet");
        QTest::newRow("sACN") << false;
        QTest::newRow("Art-Net") << true;
    }

    void DatedFrameLeavesAtItsMomentAndNotBefore() {
        QFETCH(bool, artNet);
        Begin(artNet ? ArtNet() : OutputSettings{});
        QCOMPARE(SendDated(42, 1000.025), 1);
        QVERIFY(Received().empty());
        QCOMPARE(waitsFor, std::optional(1000.025));
        MomentComes();
        QCOMPARE(Levels(artNet ? ArtNetChannel1 : SacnChannel1), std::vector<int>{42});
    }

    void FrameThatIsNotDatedLeavesAtOnce() {
        Begin();
        SendDated(1, 1000.025);
        MomentComes();
        QCOMPARE(Send(*output, 2), 1); // the moment was for the one before it
        QVERIFY(!waitsFor);
        QCOMPARE(Levels(), (std::vector<int>{1, 2}));
    }

    void LastDateHolds() {
        Begin();
        output->DateNextFrame(1000.025);
        SendDated(1, 1000.075);
        QCOMPARE(waitsFor, std::optional(1000.075));
    }

    void FrameThatStillWaitsGoesOutBeforeTheNextOne() {
        Begin();
        SendDated(1, 1000.025);
        SendDated(2, 1000.075);
        QCOMPARE(Levels(), std::vector<int>{1});
        QCOMPARE(waitsFor, std::optional(1000.075));
        Send(*output, 3);
        QCOMPARE(Levels(), (std::vector<int>{2, 3}));
    }

    void SequenceNumbersRunOnOverDatedFramesAndOthers() {
        Begin();
        std::vector<QByteArray> packets;
        for (int sending = 0; sending < 600; ++sending) {
            if (sending % 3 == 0)
                Send(*output, 1);
            else
                SendDated(1, 1000.0);
            if (sending % 3 == 1) MomentComes();
            for (const QByteArray& packet : Received()) packets.push_back(packet);
        }
        MomentComes();
        for (const QByteArray& packet : Received()) packets.push_back(packet);
        QCOMPARE(packets.size(), 600U);
        for (std::size_t packet = 0; packet < packets.size(); ++packet)
            QCOMPARE(Byte(packets[packet], SacnSequence), static_cast<int>(packet + 1) % 256);
    }

    void WithoutAnyoneToSendItADatedFrameLeavesAtOnce() {
        output = MakeOutput();
        Initialise(*output);
        QCOMPARE(SendDated(42, 1000.025), 1);
        QCOMPARE(Levels(), std::vector<int>{42});
    }

    void ClosedOutputTakesNoDatedFrame() {
        Begin();
        output->HardCommand(2, 0, nullptr);
        QCOMPARE(SendDated(42, 1000.025), 0);
        QVERIFY(!waitsFor);
    }

    void OpeningAnewAfterTheFirstDatedFrameSendsNothing() {
        Begin();
        SendDated(1, 1000.025);
        MomentComes();
        Initialise(*output);
        QCOMPARE(Levels(), std::vector<int>{1});
    }

    void DateOfAFrameThatWasNotTakenIsNotThatOfALaterOne() {
        Begin();
        SendDated(1, 1000.025);
        MomentComes();
        output->HardCommand(2, 0, nullptr);
        SendDated(2, 1000.075);
        output->HardCommand(1, 0, nullptr);
        QCOMPARE(Send(*output, 3), 1);
        QVERIFY(!waitsFor);
        QCOMPARE(Levels(), (std::vector<int>{1, 3}));
    }

    void LookAfterTheNetworkLeavesAWaitingFrameAlone() {
        Begin();
        for (int tick = 0; tick < 100; ++tick) {
            SendDated(1, 1000.0);
            output->Service();
            QVERIFY(waitsFor);
            MomentComes();
            Pass(*output, 50);
        }
        QCOMPARE(Levels().size(), 100U);
        QCOMPARE(asked, 99); // by each next frame alone
    }

    void StillStreamIsKeptAliveBehindADatedFrame() {
        Begin();
        SendDated(77, 1000.025);
        Pass(*output, 790);
        QVERIFY(Received().empty());
        Pass(*output, 10); // the frame that its sender forgot, and the one that is due
        QCOMPARE(Levels(), (std::vector<int>{77, 77}));
    }

    void EndOfTheProgramSendsTheFrameThatWaitsAndThenTheEnd() {
        Begin();
        SendDated(77, 1000.025);
        output->Finish();
        std::vector<int> options;
        for (const QByteArray& packet : Received()) options.push_back(Byte(packet, SacnOptions));
        QCOMPARE(options, (std::vector<int>{0, 0x40, 0x40, 0x40}));
        Begin(ArtNet());
        SendDated(78, 1000.025);
        output->Finish();
        QCOMPARE(Levels(ArtNetChannel1), std::vector<int>{78});
    }

    void LossIsReportedOnceWhenTheNextFrameComes() {
        Begin(Unreachable());
        QCOMPARE(SendDated(1, 1000.025), 1);
        MomentComes();
        QVERIFY(reports.empty());
        for (int tick = 0; tick < 50; ++tick) {
            QCOMPARE(SendDated(1, 1000.075), 0);
            QVERIFY(!waitsFor);
        }
        QCOMPARE(reports.size(), 1U);
        QVERIFY2(reports[0].find("(an 192.0.2.1 lässt sich nichts senden)") != std::string::npos,
                 reports[0].c_str());
    }

    void LossIsReportedAlsoWhenNoFrameFollows() {
        Begin(Unreachable());
        SendDated(1, 1000.025);
        MomentComes();
        Pass(*output, 900);
        QCOMPARE(reports.size(), 1U);
    }
};

QTEST_GUILESS_MAIN(NetworkMomentTest)
#include "networkmoment_test.moc"
