#include "files/showfilesave.h"

#include "files/savefile.h"
#include "platform/host.h"
#include "platform/programfolder.h"

#include <exception>

namespace quorvane {

namespace {

bool CouldWrite(const std::string& file, std::string (*content)()) {
    try {
        SaveFile(PathOf(file), content());
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace

bool SaveShowFile(const FileKind& kind, std::string_view proposedName, std::string (*content)(),
                  const Slot<std::string_view>& status) {
    const auto file = ChooseFileToSave(kind, proposedName);
    if (!file || !CouldWrite(*file, content)) {
        status("Speichern wurde abgebrochen.");
        return false;
    }
    Show.*kind.CurrentFile = *file;
    return true;
}

bool RefusedWithoutWall() {
    if (Show.ElementCount > 0) return false;
    Host.Beep();
    ShowMessage("Keine Wand vorhanden. Ohne Wand kann nicht gespeichert werden!");
    return true;
}

} // namespace quorvane
