// How a stream of the built-in output goes on and ends. One test waits for the event loop, to see that it
// calls the service at all.
#include "drivers/networkoutputbench.h"

using namespace quorvane;

class NetworkStreamTest : public NetworkOutputBench {
    Q_OBJECT

private slots:
    void init() { Listen(); }

    void CloseFollowedByOpenDoesNotTouchTheLamps() {
        const auto output = MakeOutput();
        Initialise(*output);
        Send(*output, 200);
        Received();
        for (int round = 0; round < 3; ++round) {
            Initialise(*output);
            QVERIFY(Received().empty());
        }
        Send(*output, 201);
        const auto packets = Received();
        QCOMPARE(packets.size(), 1U);
        QCOMPARE(Byte(packets[0], SacnOptions), 0);
        QCOMPARE(Byte(packets[0], SacnChannel1), 201);
    }

    void LateReopeningKeepsTheStreamToo() {
        const auto output = MakeOutput();
        Initialise(*output);
        Send(*output, 200);
        output->HardCommand(2, 0, nullptr);
        Pass(*output, 1900); // an initialisation that searches for ISA cards takes a while
        for (const QByteArray& packet : Received()) {
            QCOMPARE(Byte(packet, SacnOptions), 0);
            QCOMPARE(Byte(packet, SacnChannel1), 200);
        }
        output->HardCommand(1, 0, nullptr);
        Pass(*output, 5000);
        for (const QByteArray& packet : Received()) QCOMPARE(Byte(packet, SacnOptions), 0);
    }

    void CloseThatStaysEndsTheStreamOnce() {
        const auto output = MakeOutput();
        Initialise(*output);
        Send(*output, 200);
        Received();
        output->HardCommand(2, 0, nullptr);
        QCOMPARE(Send(*output, 1), 0);
        Pass(*output, 10000);
        std::vector<int> options, sequence;
        for (const QByteArray& packet : Received()) {
            options.push_back(Byte(packet, SacnOptions));
            sequence.push_back(Byte(packet, SacnSequence));
        }
        // Kept alive at 0.8 and 1.6 seconds, ended at 2.
        QCOMPARE(options, (std::vector<int>{0, 0, 0x40, 0x40, 0x40}));
        QCOMPARE(sequence, (std::vector<int>{2, 3, 4, 5, 6}));
    }

    void EndOfTheProgramEndsTheStreamAtOnce() {
        auto output = MakeOutput();
        Initialise(*output);
        Send(*output, 200);
        Received();
        output->HardCommand(2, 0, nullptr);
        output.reset();
        const auto packets = Received();
        QCOMPARE(packets.size(), 3U);
        for (const QByteArray& packet : packets) QCOMPARE(Byte(packet, SacnOptions), 0x40);
    }

    void FinishingTwiceEndsTheStreamOnce() {
        auto output = MakeOutput();
        Initialise(*output);
        Send(*output, 200);
        Received();
        output->Finish();
        output->Finish();
        output.reset();
        QCOMPARE(Received().size(), 3U);
    }

    void StreamWithoutAFrameEndsInSilence() {
        auto output = MakeOutput();
        Initialise(*output);
        Pass(*output, 5000);
        output.reset();
        QVERIFY(Received().empty());
    }

    void ArtNetEndsInSilence() {
        auto output = MakeOutput(ArtNet());
        Initialise(*output);
        Send(*output, 200);
        Received();
        output.reset();
        QVERIFY(Received().empty());
    }

    void OpenAfterTheEndStartsANewStream() {
        const auto output = MakeOutput();
        Initialise(*output);
        Send(*output, 200);
        output->Finish();
        Received();
        Initialise(*output);
        Pass(*output, 2000);
        QVERIFY(Received().empty()); // the old frame does not come back
        Send(*output, 5);
        const auto packets = Received();
        QCOMPARE(packets.size(), 1U);
        QCOMPARE(Byte(packets[0], SacnOptions), 0);
        QCOMPARE(Byte(packets[0], SacnSequence), 5); // 1 frame, 3 ends, this one
    }

    void StillStreamIsKeptAliveEvery800To1000Milliseconds_data() {
        QTest::addColumn<bool>("artNet");
        QTest::newRow("sACN") << false;
        QTest::newRow("Art-Net") << true;
    }

    void StillStreamIsKeptAliveEvery800To1000Milliseconds() {
        QFETCH(bool, artNet);
        const auto output = MakeOutput(artNet ? ArtNet() : OutputSettings{});
        Initialise(*output);
        Send(*output, 77);
        Received();
        std::int64_t last = now;
        for (int count = 2; count < 12; ++count) {
            std::vector<QByteArray> packets;
            while (packets.empty() && now < last + 2000) {
                Pass(*output, 10);
                packets = Received();
            }
            QCOMPARE(packets.size(), 1U);
            QVERIFY2(now - last >= 800 && now - last <= 1000, qPrintable(QString::number(now - last)));
            QCOMPARE(Byte(packets[0], artNet ? ArtNetSequence : SacnSequence), count);
            QCOMPARE(Byte(packets[0], artNet ? ArtNetChannel1 : SacnChannel1), 77);
            last = now;
        }
    }

    void RunningStreamGetsNoAdditionalFrames() {
        const auto output = MakeOutput();
        Initialise(*output);
        for (int tick = 0; tick < 100; ++tick) {
            Send(*output, 1);
            Pass(*output, 50);
        }
        QCOMPARE(Received().size(), 100U);
    }

    void EventLoopKeepsTheStreamAlive() {
        const auto output = MakeOutput();
        Initialise(*output);
        Send(*output, 77);
        Received();
        now += 10'000;
        QTRY_VERIFY(receiver->hasPendingDatagrams());
        QCOMPARE(Byte(Received().at(0), SacnChannel1), 77);
    }
};

QTEST_GUILESS_MAIN(NetworkStreamTest)
#include "networkstream_test.moc"
