// Frames, addresses and network cards of the built-in output, and the identity of the sender.
#include "drivers/network_identity.h"
#include "drivers/networkoutputbench.h"

#include <QFile>
#include <QNetworkInterface>
#include <QTemporaryDir>

#ifdef Q_OS_LINUX
#include <sys/resource.h>
#endif

using namespace quorvane;

namespace {

QNetworkInterface Loopback() {
    for (const QNetworkInterface& card : QNetworkInterface::allInterfaces())
        if (card.flags().testFlag(QNetworkInterface::IsLoopBack)) return card;
    return {};
}

} // namespace

class NetworkOutputTest : public NetworkOutputBench {
    Q_OBJECT

private slots:
    void init() { Listen(); }

    void OpenAnswersTheSecondUsbModel() {
        const auto output = MakeOutput();
        QCOMPARE(Initialise(*output), 10);
        QVERIFY(Received().empty());
        QVERIFY(reports.empty());
    }

    void OpenAnswersNotFoundWhenNoOutputIsWanted() {
        OutputSettings settings;
        settings.Protocol = OutputProtocol::None;
        const auto output = MakeOutput(settings);
        QCOMPARE(Initialise(*output), 0);
        QCOMPARE(Send(*output, 1), 0);
        QVERIFY(Received().empty());
    }

    void FrameLeavesAsSacnWithTheValuesOfTheSettings() {
        OutputSettings settings;
        settings.Universe = 7;
        settings.Priority = 150;
        settings.SourceName = "Pult";
        const auto output = MakeOutput(settings);
        Initialise(*output);
        QCOMPARE(Send(*output, 42), 1);
        const auto packets = Received();
        QCOMPARE(packets.size(), 1U);
        QCOMPARE(packets[0].size(), 638);
        QCOMPARE(Byte(packets[0], 22), 0xC1);
        QCOMPARE(packets[0].mid(44, 5), QByteArray("Pult\0", 5));
        QCOMPARE(Byte(packets[0], SacnPriority), 150);
        QCOMPARE(Byte(packets[0], SacnOptions), 0);
        QCOMPARE(Byte(packets[0], SacnUniverseLow), 7);
        QCOMPARE(packets[0].mid(SacnChannel1), QByteArray(512, 42));
    }

    void FrameLeavesAsArtDmx() {
        const auto output = MakeOutput(ArtNet());
        Initialise(*output);
        Send(*output, 42);
        const auto packets = Received();
        QCOMPARE(packets.size(), 1U);
        QCOMPARE(packets[0].left(10), QByteArray("Art-Net\0\0\x50", 10));
        QCOMPARE(packets[0].mid(ArtNetChannel1), QByteArray(512, 42));
    }

    void CommandsOutsideTheirPlaceDoNothing() {
        const auto output = MakeOutput();
        QCOMPARE(Send(*output, 1), 0); // not open yet
        Initialise(*output);
        QCOMPARE(output->HardCommand(4, 512, nullptr), 0);
        QCOMPARE(output->HardCommand(4, 0, frame.data()), 0);
        QCOMPARE(output->HardCommand(4, -1, frame.data()), 0);
        QCOMPARE(output->HardCommand(9, 0, frame.data()), 0);
        QVERIFY(Received().empty());
        QCOMPARE(output->HardCommand(4, 100000, frame.data()), 1); // no more than 512 are read
        QCOMPARE(Received().size(), 1U);
    }

    void SequenceNumbersRunOnOverCloseAndOpen() {
        const auto output = MakeOutput();
        int previous = -1;
        for (int count = 0; count < 600; ++count) {
            if (count % 50 == 0) Initialise(*output);
            Send(*output, 1);
            const auto packets = Received();
            QCOMPARE(packets.size(), 1U);
            if (previous >= 0) QCOMPARE(Byte(packets[0], SacnSequence), (previous + 1) % 256);
            previous = Byte(packets[0], SacnSequence);
        }
    }

    void ArtNetSequenceLeavesOutZero() {
        const auto output = MakeOutput(ArtNet());
        Initialise(*output);
        int expected = 0;
        for (int count = 0; count < 600; ++count) {
            expected = expected % 255 + 1;
            Send(*output, 1);
            QCOMPARE(Byte(Received().at(0), ArtNetSequence), expected);
        }
    }

    void MissingNetworkCardIsReportedOnceAndTheShowGoesOn() {
        OutputSettings settings;
        settings.NetworkCard = "keine0";
        const auto output = MakeOutput(settings);
        QCOMPARE(Initialise(*output), 10);
        for (int tick = 0; tick < 200; ++tick) {
            QCOMPARE(Send(*output, 1), 0);
            Pass(*output, 50);
        }
        QVERIFY(Received().empty());
        QCOMPARE(reports, (std::vector<std::string>{
                              "DMX-Ausgabe: Das Netzwerk ist nicht erreichbar (die Netzwerkkarte fehlt). "
                              "Die Ausgabe setzt von selbst wieder ein. Netzwerkkarte: keine0"}));
    }

    void UnreachableAddressIsReportedOnce() {
        OutputSettings settings;
        settings.NetworkCard = Loopback().name().toStdString();
        settings.Address = "192.0.2.1"; // an address that no house has, and not behind this card
        const auto output = MakeOutput(settings);
        QCOMPARE(Initialise(*output), 10);
        for (int tick = 0; tick < 100; ++tick) {
            Send(*output, 1);
            Pass(*output, 50);
        }
        QCOMPARE(reports.size(), 1U);
        QVERIFY2(reports[0].find("(an 192.0.2.1 lässt sich nichts senden)") != std::string::npos,
                 reports[0].c_str());
    }

    void FramesGoThroughTheChosenCard() {
        OutputSettings settings;
        settings.NetworkCard = Loopback().humanReadableName().toStdString();
        const auto output = MakeOutput(settings);
        Initialise(*output);
        QCOMPARE(Send(*output, 9), 1);
        QCOMPARE(Received().size(), 1U);
        QVERIFY(reports.empty());
    }

    void MulticastReachesTheGroupOfTheUniverse() {
        OutputSettings settings;
        settings.Delivery = OutputDelivery::Multicast;
        settings.Universe = 0x0102;
        const QNetworkInterface loopback = Loopback();
        settings.NetworkCard = loopback.name().toStdString();
        receiver->close();
        QVERIFY(receiver->bind(QHostAddress(QHostAddress::AnyIPv4), 0));
        QVERIFY(receiver->joinMulticastGroup(QHostAddress(QStringLiteral("239.255.1.2")), loopback));
        const auto output = MakeOutput(settings);
        Initialise(*output);
        QCOMPARE(Send(*output, 9), 1);
        QVERIFY(receiver->hasPendingDatagrams());
        const QNetworkDatagram datagram = receiver->receiveDatagram();
        QCOMPARE(datagram.destinationAddress(), QHostAddress(QStringLiteral("239.255.1.2")));
        QCOMPARE(Byte(datagram.data(), SacnChannel1), 9);
    }

    void MulticastSenderIsAnnouncedEveryTenSeconds() {
        OutputSettings settings;
        settings.Delivery = OutputDelivery::Multicast;
        settings.NetworkCard = Loopback().name().toStdString();
        receiver->close();
        QVERIFY(receiver->bind(QHostAddress(QHostAddress::AnyIPv4), 0));
        QVERIFY(receiver->joinMulticastGroup(QHostAddress(QStringLiteral("239.255.250.214")), Loopback()));
        const auto output = MakeOutput(settings);
        Initialise(*output);
        int announcements = 0;
        for (int tick = 0; tick < 20 * 35; ++tick) {
            Send(*output, 1);
            Pass(*output, 50);
            for (const QByteArray& packet : Received()) announcements += packet.size() == 122;
        }
        QCOMPARE(announcements, 4); // at once, after 10, 20 and 30 seconds
    }

#ifdef Q_OS_LINUX
    // The system is made to refuse sockets for a while, as it does when a network goes away.
    void LostNetworkIsPickedUpAgainByItself() {
        const auto output = MakeOutput();
        rlimit files{};
        QCOMPARE(getrlimit(RLIMIT_NOFILE, &files), 0);
        rlimit none = files;
        none.rlim_cur = 0;
        QCOMPARE(setrlimit(RLIMIT_NOFILE, &none), 0);
        const int kind = Initialise(*output);
        int sent = 0;
        for (int tick = 0; tick < 100; ++tick) {
            sent += Send(*output, 1);
            Pass(*output, 50);
        }
        setrlimit(RLIMIT_NOFILE, &files);
        QCOMPARE(kind, 10);
        QCOMPARE(sent, 0);
        QCOMPARE(reports.size(), 1U);
        QVERIFY(reports[0].starts_with("DMX-Ausgabe: Das Netzwerk ist nicht erreichbar ("));
        for (int tick = 0; tick < 41; ++tick) { // within two seconds
            Send(*output, 88);
            Pass(*output, 50);
        }
        const auto packets = Received();
        QVERIFY(!packets.empty());
        QCOMPARE(Byte(packets.back(), SacnChannel1), 88);
        QCOMPARE(reports.size(), 2U);
        QCOMPARE(reports[1], std::string("DMX-Ausgabe: Das Netzwerk ist wieder da."));
    }
#endif

    void IdentityIsMadeOnceAndKept() {
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("a/b/sender.id"));
        const Cid first = StableCid(file);
        QVERIFY(first != Cid{});
        QCOMPARE(StableCid(file), first);
        QVERIFY(StableCid(folder.filePath(QStringLiteral("other.id"))) != first);
    }

    void DamagedIdentityFileGivesANewOne() {
        QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("sender.id")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("rubbish");
        file.close();
        const Cid made = StableCid(file.fileName());
        QVERIFY(made != Cid{});
        QCOMPARE(StableCid(file.fileName()), made);
    }

    void IdentityIsTheSameAtEveryStartWhereNothingCanBeWritten() {
        const QString nowhere = QStringLiteral("/dev/null/sender.id");
        QVERIFY(StableCid(nowhere) != Cid{});
        QCOMPARE(StableCid(nowhere), StableCid(nowhere));
    }
};

QTEST_GUILESS_MAIN(NetworkOutputTest)
#include "networkoutput_test.moc"
