// The driver libraries of interfaces: dlportio (I/O ports), USBDMXVB (USB interface), dmxcrd32 (PCMCIA and
// PCI cards) and MemoCard (memory card adapter). Each is used when its file stands in the program folder,
// with the ending of the system and in any case of letters; otherwise its place stays free for what the
// program brings along. Entries have C linkage and the calling convention that is usual on the system.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

// What was found in the program folder. A library in use has filled its slots of Host and stays loaded
// until these are filled otherwise. Host's PortDriver, UsbDriver and CardDriver tell the rest.
struct DriverLibraries {
    bool Ports = false;      // dlportio
    bool Usb = false;        // USBDMXVB
    bool Card = false;       // dmxcrd32
    bool MemoryCard = false; // MemoCard

    // One message for the user for each library that is there and cannot be used, naming its file. Its
    // slots of Host are as they were.
    std::vector<std::string> Messages;
};

DriverLibraries LoadDriverLibraries(std::string_view programFolder);

} // namespace quorvane
