#include "devices/isacard.h"

#include "model/show.h"
#include "platform/host.h"
#include "platform/programfolder.h"

#include <fstream>

namespace quorvane {

namespace {

// Ports, counted from the base.
constexpr int AddressLow = 0;
constexpr int AddressHigh = 1;
constexpr int Data = 2;
constexpr int Reset = 3;

constexpr int AddressableBytes = 65536;

std::uint8_t In(int base, int port) {
    return Host.DlPortReadPortUchar(static_cast<std::uint32_t>(base + port));
}

void Out(int base, int port, int value) {
    Host.DlPortWritePortUchar(static_cast<std::uint32_t>(base + port), static_cast<std::uint8_t>(value));
}

void SelectAddress(int base, int address) {
    Out(base, AddressLow, address & 255);
    Out(base, AddressHigh, address / 256);
}

// Copies a file into the card's memory, byte i to address i. False when it could not be read whole or is
// longer than the card's addresses reach. A folder of that name is there and opens, but never reads.
bool CopyToCard(std::ifstream& file, int& bytes) {
    for (char byte = 0; file.get(byte); ++bytes) {
        if (bytes == AddressableBytes) return false;
        WriteDpr(Show.CardBase, bytes, static_cast<std::uint8_t>(byte));
        // What reads back is not looked at, on purpose.
        ReadDpr(Show.CardBase, bytes);
    }
    return !file.bad();
}

} // namespace

int FindCard() {
    constexpr int testByte = 170;
    for (int base = 0x100; base <= 0x160; base += 0x20) {
        WriteDpr(base, CardProbeCell, testByte);
        if (In(base, Data) == testByte) return base;
    }
    return 0;
}

std::uint8_t ReadPort(int base) { return In(base, AddressLow); }

void ClearPort(int base) { Out(base, AddressLow, 0); }

std::uint8_t ResetRead(int base) { return In(base, Reset); }

void ResetWrite(int base) { Out(base, Reset, 0); }

std::uint8_t ReadDpr(int base, int address) {
    SelectAddress(base, address);
    return In(base, Data);
}

void WriteDpr(int base, int address, std::uint8_t value) {
    SelectAddress(base, address);
    Out(base, Data, value);
}

int UploadCardOs(std::string_view fileName) {
    Show.CardBase = FindCard();
    if (Show.CardBase <= LastBaseWithoutCard) return 0;
    if (Show.InterfaceType == IsaCardC) ReadPort(Show.CardBase);

    const auto folder = PathOf(Host.ProgramFolder);
    const auto path = FindInFolder(folder, fileName);
    std::error_code error;
    const bool isFolder = std::filesystem::is_directory(path, error);
    std::ifstream file(path, std::ios::binary);
    if (!file.is_open() && !isFolder) {
        Host.MsgBox("Card OS file " + TextOf((folder / PathOf(fileName)).make_preferred()) + " is missing",
                    Buttons::Ok, "DATA TRANSFER ERROR", Icon::Critical);
        Show.CardBase = 0;
        return 0;
    }
    int bytes = 0;
    if (isFolder || !CopyToCard(file, bytes)) {
        Host.MsgBox("Error while reading OS file " + std::string(fileName), Buttons::Ok,
                    "DATA TRANSFER ERROR", Icon::Critical);
        Show.CardBase = 0;
        Show.InterfaceType = NoInterface;
    }
    return bytes;
}

} // namespace quorvane
