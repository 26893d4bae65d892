#include "drivers/network_identity.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSysInfo>
#include <QUuid>

#include <algorithm>

namespace quorvane {

namespace {

QUuid DerivedFromMachine() {
    const QUuid nameSpace(QStringLiteral("{5c1d4f0e-3a0b-4b51-9d1c-2f8d1a6c7e90}"));
    return QUuid::createUuidV5(nameSpace, QSysInfo::machineUniqueId() + QSysInfo::machineHostName().toUtf8() +
                                              QDir::homePath().toUtf8());
}

bool Keep(const QString& path, const QUuid& identity) {
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path); // whole or not at all: half a file would give another identity next time
    return file.open(QIODevice::WriteOnly) && file.write(identity.toByteArray() + '\n') > 0 && file.commit();
}

} // namespace

Cid StableCid(const QString& path) {
    QUuid identity;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        identity = QUuid::fromString(QString::fromLatin1(file.read(64)).trimmed());
    if (identity.isNull()) {
        identity = QUuid::createUuid();
        if (!Keep(path, identity)) identity = DerivedFromMachine();
    }
    Cid cid;
    std::ranges::copy(identity.toRfc4122(), cid.begin());
    return cid;
}

} // namespace quorvane
