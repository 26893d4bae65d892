#include "app/application.h"
#include "app/quitsignal.h"

#include <QLibraryInfo>
#include <QTranslator>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    quorvane::BlockQuitSignals();
    quorvane::Application application(argc, argv);
    QTranslator german;
    if (german.load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&german);
    return RUN_ALL_TESTS();
}
