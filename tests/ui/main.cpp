#include "app/application.h"
#include "app/quitsignal.h"

#include <QLibraryInfo>
#include <QTranslator>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QPA_UPDATE_IDLE_TIME", "0"); // what is drawn is on the screen with the next events
    testing::InitGoogleTest(&argc, argv);
    quorvane::BlockQuitSignals();
    quorvane::Application application(argc, argv);
    QTranslator german;
    if (german.load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&german);
    return RUN_ALL_TESTS();
}
