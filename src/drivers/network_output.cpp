#include "drivers/network_output.h"

#include <QNetworkInterface>
#include <QNetworkProxy>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace quorvane {

namespace {

// Enough for every router on the way in a large house. What keeps the frames inside it is the address:
// 239.255 does not leave a site.
constexpr int MulticastHops = 64;
// A lost packet among these does no harm.
constexpr int TerminationPackets = 3;

NetworkOutput::Surroundings Completed(NetworkOutput::Surroundings surroundings, OutputProtocol protocol) {
    if (!surroundings.Seconds)
        surroundings.Seconds = [] {
            return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
        };
    if (surroundings.Port == 0)
        surroundings.Port = protocol == OutputProtocol::ArtNet ? ArtNetPort : SacnPort;
    return surroundings;
}

QHostAddress Destination(const OutputSettings& settings) {
    switch (settings.Delivery) {
    case OutputDelivery::Multicast: return QHostAddress(SacnMulticastGroup(settings.Universe));
    case OutputDelivery::Broadcast: return QHostAddress(QHostAddress::Broadcast);
    case OutputDelivery::Unicast: break;
    }
    return QHostAddress(QString::fromStdString(settings.Address));
}

// By the name that users know or the one that the system uses.
QNetworkInterface FindCard(const QString& name) {
    for (const QNetworkInterface& card : QNetworkInterface::allInterfaces())
        if (card.name() == name || card.humanReadableName() == name) return card;
    return {};
}

bool IsRunning(const QNetworkInterface& card) {
    return card.isValid() && card.flags().testFlag(QNetworkInterface::IsUp) &&
           card.flags().testFlag(QNetworkInterface::IsRunning);
}

} // namespace

NetworkOutput::NetworkOutput(const OutputSettings& theSettings, const Cid& cid, Surroundings theSurroundings)
    : settings(theSettings), surroundings(Completed(std::move(theSurroundings), theSettings.Protocol)),
      destination(Destination(theSettings)), port(surroundings.Port) {
    PrepareSacnPacket(sacn, cid, settings.SourceName, settings.Priority, settings.Universe);
    PrepareSacnDiscoveryPacket(discovery, cid, settings.SourceName, settings.Universe);
    PrepareArtDmxPacket(artDmx, settings.Universe);
    socket.setProxy(QNetworkProxy::NoProxy);
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    timer.callOnTimeout([this] { Service(); });
}

NetworkOutput::~NetworkOutput() { Finish(); }

std::int32_t NetworkOutput::HardCommand(std::int32_t command, std::int32_t parameter, std::uint8_t* buffer) {
    switch (command) {
    case 1: return Open();
    case 2: return Close();
    case 3:
    case 5: return stream == Stream::Open;
    case 4:
        if (buffer == nullptr || parameter < 1) return 0;
        return SendFrame({buffer, static_cast<std::size_t>(std::min(parameter, 512))});
    default: return 0;
    }
}

// An open interface is an open interface, also while the network is away: the show goes on and the
// output joins in when the network is back.
std::int32_t NetworkOutput::Open() {
    if (settings.Protocol == OutputProtocol::None) return 0;
    stream = Stream::Open;
    SettleWaiting(); // it may tell that the network is there
    if (link != Link::There) TryNetwork();
    Schedule();
    return Kind;
}

std::int32_t NetworkOutput::Close() {
    if (stream != Stream::Open) return 0;
    stream = Stream::Ending;
    closedAt = surroundings.Seconds();
    Schedule();
    return 1;
}

std::int32_t NetworkOutput::SendFrame(std::span<const std::uint8_t> values) {
    const auto moment = std::exchange(nextMoment, std::nullopt);
    if (stream != Stream::Open) return 0;
    SettleWaiting();
    if (IsSacn())
        SetSacnValues(sacn, values);
    else
        SetArtDmxValues(artDmx, values);
    hasFrame = true;
    if (moment && surroundings.SendAt && socket.state() == QAbstractSocket::BoundState) {
        Stamp(false);
        lastSent = surroundings.Seconds();
        waits = true;
        surroundings.SendAt(*moment);
        return 1;
    }
    Transmit();
    return link == Link::There;
}

void NetworkOutput::Service() {
    const double now = surroundings.Seconds();
    if (stream == Stream::Ending && now >= closedAt + EndSeconds) EndStream();
    if (stream == Stream::Closed) return;

    if (link == Link::There && !settings.NetworkCard.empty() && now >= nextLook) {
        nextLook = now + RetrySeconds;
        if (!CardIsThere()) NetworkIsLost(QStringLiteral("die Netzwerkkarte ist getrennt"));
    }
    if (link == Link::Lost && now >= nextTry) TryNetwork();
    if (hasFrame && now >= lastSent + KeepAliveSeconds) Transmit();
    if (link == Link::There && settings.Delivery == OutputDelivery::Multicast && now >= nextAnnouncement)
        Announce();
    Schedule();
}

void NetworkOutput::Finish() {
    EndStream();
    timer.stop();
    CloseSocket();
    link = Link::Unknown;
}

void NetworkOutput::EndStream() {
    if (stream == Stream::Closed) return;
    if (IsSacn() && hasFrame)
        for (int packet = 0; packet < TerminationPackets; ++packet) Transmit(true);
    stream = Stream::Closed;
    hasFrame = false;
}

// The next event loop call of Service. The timer is not touched at each frame: it looks itself how long
// ago the last one was.
void NetworkOutput::Schedule() {
    if (stream == Stream::Closed) return;
    const double now = surroundings.Seconds();
    double due = link == Link::Lost ? nextTry : now + KeepAliveSeconds;
    if (hasFrame && lastSent + KeepAliveSeconds > now) due = std::min(due, lastSent + KeepAliveSeconds);
    if (stream == Stream::Ending) due = std::min(due, closedAt + EndSeconds);
    timer.start(std::chrono::milliseconds(static_cast<int>(std::ceil(std::max(due - now, 0.0) * 1000.0))));
}

void NetworkOutput::TryNetwork() {
    nextTry = surroundings.Seconds() + RetrySeconds;
    CloseSocket();
    if (BindSocket() && hasFrame) Transmit();
}

bool NetworkOutput::BindSocket() {
    if (settings.NetworkCard.empty()) {
        if (!socket.bind(QHostAddress(QHostAddress::AnyIPv4), 0)) {
            NetworkIsLost(QStringLiteral("das System stellt keine Verbindung bereit"));
            return false;
        }
    } else if (!BindToCard()) {
        return false;
    }
    if (settings.Delivery == OutputDelivery::Multicast)
        socket.setSocketOption(QAbstractSocket::MulticastTtlOption, MulticastHops);
    descriptor = socket.socketDescriptor();
    return true;
}

bool NetworkOutput::BindToCard() {
    const QNetworkInterface card = FindCard(QString::fromStdString(settings.NetworkCard));
    if (!card.isValid()) {
        NetworkIsLost(QStringLiteral("die Netzwerkkarte fehlt"));
        return false;
    }
    const auto addresses = card.addressEntries();
    const auto entry = std::ranges::find_if(
        addresses, [](const auto& each) { return each.ip().protocol() == QAbstractSocket::IPv4Protocol; });
    if (entry == addresses.end() || !IsRunning(card) || !socket.bind(entry->ip(), 0)) {
        NetworkIsLost(QStringLiteral("die Netzwerkkarte ist nicht verbunden"));
        return false;
    }
    cardAddress = entry->ip();
    nextLook = surroundings.Seconds() + RetrySeconds;
    if (settings.Delivery == OutputDelivery::Multicast) socket.setMulticastInterface(card);
    if (settings.Delivery == OutputDelivery::Broadcast && !entry->broadcast().isNull())
        destination = entry->broadcast();
    return true;
}

bool NetworkOutput::CardIsThere() const {
    const QNetworkInterface card = FindCard(QString::fromStdString(settings.NetworkCard));
    return IsRunning(card) && std::ranges::any_of(card.addressEntries(), [this](const auto& each) {
               return each.ip() == cardAddress;
           });
}

void NetworkOutput::Transmit(bool terminated) {
    SettleWaiting();
    if (socket.state() != QAbstractSocket::BoundState) return;
    Stamp(terminated);
    sent = Send();
    Judge();
}

void NetworkOutput::Stamp(bool terminated) {
    sequence = IsSacn() ? static_cast<std::uint8_t>(sequence + 1) : NextArtDmxSequence(sequence);
    if (IsSacn())
        StampSacnPacket(sacn, sequence, terminated);
    else
        StampArtDmxPacket(artDmx, sequence);
}

Sent NetworkOutput::Send() const {
    const auto packet =
        IsSacn() ? std::span<const std::uint8_t>(sacn) : std::span<const std::uint8_t>(artDmx);
    return SendDatagram(descriptor, packet, destination.toIPv4Address(), port);
}

// What became of a frame that had its moment is looked at when the next one comes, in the owner's thread.
void NetworkOutput::SettleWaiting() {
    if (!std::exchange(waits, false)) return;
    surroundings.SendNow();
    Judge();
}

// A full queue of the network card is over with the next frame; everything else is a loss.
void NetworkOutput::Judge() {
    if (sent == Sent::Yes) {
        lastSent = surroundings.Seconds();
        NetworkIsThere();
    } else if (sent == Sent::No) {
        NetworkIsLost(QStringLiteral("an ") + destination.toString() +
                      QStringLiteral(" lässt sich nichts senden"));
    }
}

void NetworkOutput::Announce() {
    nextAnnouncement = surroundings.Seconds() + DiscoverySeconds;
    socket.writeDatagram(reinterpret_cast<const char*>(discovery.data()),
                         static_cast<qint64>(discovery.size()),
                         QHostAddress(SacnMulticastGroup(SacnDiscoveryUniverse)), port);
}

void NetworkOutput::CloseSocket() {
    SettleWaiting();
    socket.close();
}

void NetworkOutput::NetworkIsThere() {
    const bool wasLost = std::exchange(link, Link::There) == Link::Lost;
    if (wasLost) surroundings.Report("DMX-Ausgabe: Das Netzwerk ist wieder da.");
}

void NetworkOutput::NetworkIsLost(const QString& cause) {
    CloseSocket();
    nextTry = surroundings.Seconds() + RetrySeconds;
    if (std::exchange(link, Link::Lost) == Link::Lost) return;
    QString text = QStringLiteral("DMX-Ausgabe: Das Netzwerk ist nicht erreichbar (%1). "
                                  "Die Ausgabe setzt von selbst wieder ein.")
                       .arg(cause);
    if (!settings.NetworkCard.empty())
        text += QStringLiteral(" Netzwerkkarte: ") + QString::fromStdString(settings.NetworkCard);
    surroundings.Report(text.toStdString());
}

} // namespace quorvane
