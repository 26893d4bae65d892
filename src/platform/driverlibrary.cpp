#include "platform/driverlibrary.h"

#include "platform/host.h"
#include "platform/programfolder.h"
#include "platform/sharedlibrary.h"

#include <memory>
#include <utility>

#if defined(_WIN32) && !defined(_WIN64)
#define DRIVER_CALL __stdcall
#else
#define DRIVER_CALL
#endif

namespace quorvane {

namespace {

namespace fs = std::filesystem;

// The entry of that name as a function, callable as long as anyone keeps it: it holds its library loaded.
// Empty when the library lacks it.
template<class Result, class... Arguments>
std::function<Result(Arguments...)> EntryOf(const std::shared_ptr<SharedLibrary>& library, const char* name) {
    using Function = Result(DRIVER_CALL*)(Arguments...);
    const auto entry = reinterpret_cast<Function>(library->Entry(name));
    if (entry == nullptr) return {};
    return [library, entry](Arguments... arguments) { return entry(arguments...); };
}

// Looks one library up and puts its entries into their slots, all or none.
class Loader {
public:
    Loader(const fs::path& folder, std::string_view name, std::vector<std::string>& said,
           DriverOrigin& driver)
        : path(FindInFolder(folder, std::string(name) + SharedLibrary::Ending)), messages(said),
          origin(driver) {
        std::error_code failed;
        if (!fs::exists(path, failed)) return;
        library = std::make_shared<SharedLibrary>(path);
        if (!library->IsLoaded())
            GiveUp("Die Treiberbibliothek \"" + FileName() +
                   "\" konnte nicht geladen werden und wird nicht benutzt.");
    }

    template<class Result, class... Arguments>
    Loader& Take(const char* entry, std::function<Result(Arguments...)>& slot) {
        if (!library) return *this;
        auto function = EntryOf<Result, Arguments...>(library, entry);
        if (!function) {
            GiveUp("Der Treiberbibliothek \"" + FileName() + "\" fehlt der Eintrag \"" + entry +
                   "\". Sie wird nicht benutzt.");
            return *this;
        }
        fillings.push_back([&slot, function = std::move(function)] { slot = function; });
        return *this;
    }

    // True when every entry was there; only then the slots change.
    bool Fill() {
        if (!library) return false;
        for (const auto& fill : fillings) fill();
        origin = {DriverOrigin::Library, FileName(), ""};
        return true;
    }

private:
    std::string FileName() const { return TextOf(path.filename()); }

    void GiveUp(const std::string& message) {
        library.reset();
        messages.push_back(message);
        origin.Unusable = FileName();
    }

    fs::path path;
    std::vector<std::string>& messages;
    DriverOrigin& origin;
    std::shared_ptr<SharedLibrary> library;
    std::vector<std::function<void()>> fillings;
};

} // namespace

DriverLibraries LoadDriverLibraries(std::string_view programFolder) {
    const fs::path folder = PathOf(programFolder);
    DriverLibraries found;
    DriverOrigin memoryCard; // its window says nothing of it
    found.Ports = Loader(folder, "dlportio", found.Messages, Host.PortDriver)
                      .Take("DlPortReadPortUchar", Host.DlPortReadPortUchar)
                      .Take("DlPortWritePortUchar", Host.DlPortWritePortUchar)
                      .Fill();
    found.Usb = Loader(folder, "USBDMXVB", found.Messages, Host.UsbDriver)
                    .Take("_DasHardCommand", Host.DasHardCommand)
                    .Fill();
    found.Card = Loader(folder, "dmxcrd32", found.Messages, Host.CardDriver)
                     .Take("DMXSEND", Host.DMXSEND)
                     .Take("DMXSEND2", Host.DMXSEND2)
                     .Fill();
    found.MemoryCard = Loader(folder, "MemoCard", found.Messages, memoryCard)
                           .Take("vbWRAMC", Host.vbWRAMC)
                           .Take("vbRRAMC", Host.vbRRAMC)
                           .Take("vbWDRAMC", Host.vbWDRAMC)
                           .Fill();
    return found;
}

} // namespace quorvane
