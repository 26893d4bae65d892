#include "app/helpfile.h"

#include "platform/programfolder.h"

#include <QFile>

#include <fstream>

namespace quorvane {

void PlaceHelpFile(std::string_view programFolder) {
    const auto path = FindInFolder(PathOf(programFolder), "quorvane.doc");
    std::error_code error;
    if (std::filesystem::exists(path, error)) return;
    QFile brought(":/quorvane.doc");
    if (!brought.open(QIODevice::ReadOnly)) return;
    const QByteArray text = brought.readAll();
    std::ofstream(path, std::ios::binary).write(text.data(), text.size());
}

} // namespace quorvane
