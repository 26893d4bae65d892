// The built-in DMX output: what a USB interface with its driver library is elsewhere, here a sender of
// sACN or Art-Net. It understands the five commands of that library, so that the program drives it like
// the interface. No waiting: a frame that the network does not take is gone, the next follows. All of it
// belongs to one thread, but for the sending of a frame that was told its moment.
#pragma once

#include "drivers/artnet_packet.h"
#include "drivers/datagram.h"
#include "drivers/output_settings.h"
#include "drivers/sacn_packet.h"

#include <QHostAddress>
#include <QTimer>
#include <QUdpSocket>

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>

namespace quorvane {

class NetworkOutput {
public:
    // What the output asks of its surroundings; a test puts its own in.
    struct Surroundings {
        // Told once when the network is gone and once when it is back; German text, UTF-8. It is called
        // out of a command or the event loop and must not wait for the user.
        std::function<void(std::string_view text)> Report = [](std::string_view) {};
        // Monotonic time in seconds, from any start.
        std::function<double()> Seconds; // empty: the system's
        // Where receivers listen; 0: the port of the protocol's standard.
        std::uint16_t Port = 0;
        // SendAt sees to it that SendWaiting is called at that moment of Seconds, on any thread. SendNow
        // calls it at once unless that was done, and does not come back while it runs. Without the two a
        // frame leaves as soon as it is handed over.
        std::function<void(double moment)> SendAt = {};
        std::function<void()> SendNow = {};
    };

    // The kind that command 1 answers: the program takes it for a USB interface of its second model.
    static constexpr std::int32_t Kind = 10;
    // A stream stands still for at most this long before its last frame is sent again; the standards ask
    // for 0.8 to 1 second. Receivers give a silent sender up after 2.5 seconds.
    static constexpr double KeepAliveSeconds = 0.8;
    // Between a close and the open that follows it in every initialisation. Only a close that is not
    // taken back in this time ends the stream: an initialisation must not make the lamps blink.
    static constexpr double EndSeconds = 2.0;
    // From one attempt to reach a lost network to the next, and between looks at a chosen network card.
    static constexpr double RetrySeconds = 2.0;

    // Between two announcements of a multicast sender, as the standard asks. A sender to one address does
    // not announce itself: nobody else is to hear of it.
    static constexpr double DiscoverySeconds = 10.0;

    NetworkOutput(const OutputSettings& settings, const Cid& cid, Surroundings surroundings);
    ~NetworkOutput(); // as Finish
    NetworkOutput(const NetworkOutput&) = delete;
    NetworkOutput& operator=(const NetworkOutput&) = delete;

    // 1 opens and answers Kind, or 0 when the settings say that there is no output; 2 closes; 3, after an
    // open, and 5, before each frame, have nothing to do here; 4 sends: parameter is the number of
    // channels, buffer their values. Commands other than 1 answer 1 when they took effect, else 0.
    std::int32_t HardCommand(std::int32_t command, std::int32_t parameter, std::uint8_t* buffer);

    // The frame that is handed over next is to leave at that moment of Seconds, not before.
    void DateNextFrame(double moment) { nextMoment = moment; }
    // Sends the frame that waits for its moment; see Surroundings.
    void SendWaiting() { sent = Send(); }

    // What is due by now: a still stream kept alive, a lost network tried again, a sender announced, a
    // closed stream ended.
    // Called by the event loop; a test that moves the time itself calls it too.
    void Service();

    // Ends the output for good: receivers are told that nothing follows. Art-Net has no such message.
    void Finish();

private:
    enum class Stream { Closed, Open, Ending };
    enum class Link { Unknown, There, Lost };

    std::int32_t Open();
    std::int32_t Close();
    std::int32_t SendFrame(std::span<const std::uint8_t> values);
    void EndStream();

    void TryNetwork();
    bool BindSocket();
    bool BindToCard();
    bool CardIsThere() const;
    void Transmit(bool terminated = false);
    void Stamp(bool terminated);
    Sent Send() const;
    void SettleWaiting();
    void Judge();
    void CloseSocket();
    void Announce();
    void NetworkIsThere();
    void NetworkIsLost(const QString& cause);
    void Schedule();

    bool IsSacn() const { return settings.Protocol == OutputProtocol::Sacn; }

    const OutputSettings settings;
    const Surroundings surroundings;

    SacnPacket sacn;
    SacnDiscoveryPacket discovery;
    ArtDmxPacket artDmx;
    std::uint8_t sequence = 0; // of the last packet; runs on over close and open
    bool hasFrame = false;     // a frame was handed over since the stream began
    std::optional<double> nextMoment;
    bool waits = false;    // for its moment; until it is settled, the packet belongs to whoever sends it
    Sent sent = Sent::Yes; // what became of the last packet

    Stream stream = Stream::Closed;
    Link link = Link::Unknown;
    double lastSent = 0, closedAt = 0, nextTry = 0, nextLook = 0, nextAnnouncement = 0;

    QUdpSocket socket;
    std::intptr_t descriptor = -1; // of the socket while it is bound
    QHostAddress destination, cardAddress;
    std::uint16_t port = 0;
    QTimer timer;
};

} // namespace quorvane
