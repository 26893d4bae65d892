#include "app/outside.h"

#include "app/helpfile.h"
#include "drivers/network_identity.h"
#include "drivers/output_settings.h"
#include "model/screen.h"
#include "model/text.h"
#include "platform/datafolder.h"
#include "platform/driverlibrary.h"
#include "platform/host.h"
#include "platform/monotonicclock.h"
#include "platform/programfolder.h"
#include "platform/registry.h"
#include "platform/systemversion.h"
#include "platform/texteditor.h"
#include "platform/tickgrid.h"

#include <QCoreApplication>
#include <QStandardPaths>

namespace quorvane {

Outside::Outside(const std::optional<std::string>& programFolder) {
    FillSystem();
    Host.ProgramFolder =
        ChooseProgramFolder(programFolder, QCoreApplication::applicationDirPath().toStdString());
    PlaceHelpFile(Host.ProgramFolder);
    const DriverLibraries libraries = LoadDriverLibraries(Host.ProgramFolder);
    const OutputSettingsReading reading = LoadOutputSettings(PathOf(Host.ProgramFolder));
    messages = libraries.Messages;
    messages.insert(messages.end(), reading.Messages.begin(), reading.Messages.end());
    if (!libraries.Ports) FillPorts(reading.Settings);
    if (!libraries.Usb) FillUsb(reading.Settings);
    if (!libraries.MemoryCard) FillMemoryCard(reading.Settings);
}

// A frame may still wait for its moment, and whoever sends it asks for the network.
Outside::~Outside() {
    Host = HostCalls{};
    if (network) network->Finish();
}

void Outside::FillSystem() {
    Host.ReadSetting = ReadSetting;
    Host.WriteSetting = WriteSetting;
    Host.GetVersion = GetVersion;
    Host.PreviousInstance = [this] { return instance.PreviousInstance(); };
    Host.StartEditor = StartTextEditor;
    Host.Seconds = Seconds;
    Host.ComposeText = [](std::string_view text) {
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
            .normalized(QString::NormalizationForm_C)
            .toStdString();
    };
}

void Outside::FillPorts(const OutputSettings& settings) {
    simulatedCard =
        ParseSimulatedCard(settings.SimulatedCard + ' ' + Hexadecimal(settings.SimulatedCardBase));
    if (simulatedCard) {
        Host.PortDriver.From = DriverOrigin::BuiltIn;
        Host.PortDriver.Name = "simulierte Karte " + settings.SimulatedCard + " an Adresse " +
                               Hexadecimal(settings.SimulatedCardBase) + "h";
        Host.DlPortReadPortUchar = [this](std::uint32_t port) { return simulatedCard->ReadPort(port); };
        Host.DlPortWritePortUchar = [this](std::uint32_t port, std::uint8_t value) {
            simulatedCard->WritePort(port, value);
        };
    } else {
        Host.PortDriver.From = DriverOrigin::System;
        Host.DlPortReadPortUchar = [this](std::uint32_t port) {
            const std::uint8_t value = ports.Read(port);
            if (ports.Refused()) Host.PortDriver.From = DriverOrigin::Nobody;
            return value;
        };
        Host.DlPortWritePortUchar = [this](std::uint32_t port, std::uint8_t value) {
            ports.Write(port, value);
        };
    }
}

void Outside::FillUsb(const OutputSettings& settings) {
    Host.UsbDriver.From = DriverOrigin::BuiltIn;
    Host.UsbDriver.Name = OutputDestination(settings);
    const QString own = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    const auto say = [](std::string_view text) { Screen.WallStatus(text); };
    sending.emplace([this] { network->SendWaiting(); }, TickGrid::Period);
    network = std::make_unique<NetworkOutput>(
        settings, StableCid(own + "/Quorvane/Absender.id"),
        NetworkOutput::Surroundings{.Report = say,
                                    .Seconds = Seconds,
                                    .Port = 0,
                                    .SendAt = [this](double moment) { sending->At(moment); },
                                    .SendNow = [this] { sending->Now(); }});
    Host.DateNextFrame = [this](double moment) { network->DateNextFrame(moment); };
    Host.DasHardCommand = [this](std::int32_t command, std::int32_t parameter, std::uint8_t* buffer) {
        return network->HardCommand(command, parameter, buffer);
    };
}

// The adapter is reached through the same ports as the ISA cards, whoever serves them.
void Outside::FillMemoryCard(const OutputSettings& settings) {
    simulatedMemoryCard = ParseSimulatedMemoryCard(settings.SimulatedMemoryCard);
    if (simulatedMemoryCard) {
        Host.vbWRAMC = [this](std::int32_t port, std::int32_t value) {
            simulatedMemoryCard->WritePort(port, value);
        };
        Host.vbRRAMC = [this](std::int32_t port) { return simulatedMemoryCard->ReadPort(port); };
        Host.vbWDRAMC = [this](std::int32_t port, std::int32_t value) {
            simulatedMemoryCard->WriteData(port, value);
        };
    } else {
        const auto write = [](std::int32_t port, std::int32_t value) {
            Host.DlPortWritePortUchar(static_cast<std::uint32_t>(port), static_cast<std::uint8_t>(value));
        };
        Host.vbWRAMC = write;
        Host.vbRRAMC = [](std::int32_t port) -> std::int32_t {
            return Host.DlPortReadPortUchar(static_cast<std::uint32_t>(port));
        };
        Host.vbWDRAMC = write;
    }
}

} // namespace quorvane
