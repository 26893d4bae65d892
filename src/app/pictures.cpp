#include "app/pictures.h"

#include "platform/programfolder.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace quorvane {

void PlacePictures(std::string_view programFolder) {
    const QDir brought(":/bilder");
    for (const QString& name : brought.entryList(QDir::Files)) {
        const auto path = FindInFolder(PathOf(programFolder), name.toStdString());
        const QString target = QString::fromStdString(TextOf(path));
        QFile picture(brought.filePath(name));
        if (QFile::exists(target) || !picture.open(QIODevice::ReadOnly)) continue;
        QSaveFile file(target); // whole or not at all
        if (file.open(QIODevice::WriteOnly) && file.write(picture.readAll()) == picture.size()) file.commit();
    }
}

} // namespace quorvane
