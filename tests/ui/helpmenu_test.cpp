#include "ui/windowbench.h"

#include "app/helpfile.h"
#include "ui/frmInfo.h"

#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>

namespace quorvane {

class HelpMenu : public WindowBench {
protected:
    // As the program brings it along.
    static std::string Help() {
        QFile file(":/quorvane.doc");
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }
};

TEST_F(HelpMenu, CarriesItsCaptions) {
    StartProgram();
    EXPECT_EQ(main->findChild<QMenu*>("mnuHelp")->title(), "&Hilfe");
    EXPECT_EQ(Entry("mnuInfo")->text(), "&Info");
    EXPECT_EQ(Entry("mnuHilfe")->text(), "&Hilfe");
}

TEST_F(HelpMenu, InfoBoxNamesProgramAndVersionInTheMiddleOfTheScreen) {
    StartProgram();
    main->setGeometry(0, 0, 300, 200); // so that its middle is not the screen's
    WhenAsked([](QDialog* asked) {
        auto* info = dynamic_cast<frmInfo*>(asked);
        ASSERT_NE(info, nullptr);
        EXPECT_EQ(info->lblInfo->text(), "DMX QUORVANE V 1.21");
        EXPECT_EQ(info->cmdInfo->text(), "&OK");
        const QPoint off = info->frameGeometry().center() - info->screen()->geometry().center();
        EXPECT_LE(off.manhattanLength(), 2);
        QTest::mouseClick(info->cmdInfo, Qt::LeftButton);
    });
    Choose("mnuInfo");
}

TEST_F(HelpMenu, InfoBoxClosesByItselfAfterFiveSeconds) {
    StartProgram();
    frmInfo info(main.get());
    const double before = Host.Seconds();
    info.AutoUnload();
    EXPECT_FALSE(info.isVisible());
    EXPECT_NEAR(Host.Seconds() - before, 5, 0.1);
}

TEST_F(HelpMenu, InfoBoxThatWouldCloseByItselfClosesAtOnceOnItsButton) {
    StartProgram();
    frmInfo info(main.get());
    QTimer::singleShot(0, &info, [&info] { QTest::mouseClick(info.cmdInfo, Qt::LeftButton); });
    const double before = Host.Seconds();
    info.AutoUnload();
    EXPECT_FALSE(info.isVisible());
    EXPECT_LT(Host.Seconds() - before, 0.1);
}

TEST_F(HelpMenu, InfoBoxThatWouldCloseByItselfClosesAtOnceWhenTheProgramIsEnded) {
    StartProgram();
    frmInfo info(main.get());
    int events = 0;
    Host.Seconds = [now = 0]() mutable { return ++now; };
    Host.DoEvents = [&events] {
        ++events;
        return false;
    };
    info.AutoUnload();
    EXPECT_EQ(events, 1);
    EXPECT_FALSE(info.isVisible());
}

TEST_F(HelpMenu, HelpFileIsOpenedInTheSystemsEditor) {
    StartProgram();
    Write("Quorvane.DOC", "Hilfe");
    std::string opened;
    Host.StartEditor = [&opened](std::string_view path) {
        opened = path;
        return true;
    };
    Choose("mnuHilfe");
    EXPECT_EQ(opened, QDir::toNativeSeparators(Folder.filePath("Quorvane.DOC")).toStdString());
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(HelpMenu, HelpFileIsBroughtAlongUnlessItStandsThereInWhateverLetters) {
    PlaceHelpFile(Host.ProgramFolder);
    EXPECT_EQ(Read("quorvane.doc"), Help());
    QFile::remove(Folder.filePath("quorvane.doc"));
    Write("QUORVANE.DOC", "eigene Hilfe");
    PlaceHelpFile(Host.ProgramFolder);
    EXPECT_EQ(QDir(Folder.path()).entryList({"quorvane.doc"}, QDir::Files), QStringList{"QUORVANE.DOC"});
    EXPECT_EQ(Read("QUORVANE.DOC"), "eigene Hilfe");
}

TEST_F(HelpMenu, HelpFileIsPlainTextOfTheWindowsKind) {
    const std::string text = Help();
    ASSERT_FALSE(text.empty());
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = text.find('\n', start);
        ASSERT_NE(end, std::string::npos) << "the last line ends too";
        EXPECT_EQ(text[end - 1], '\r');
        EXPECT_LE(end - start, 80u) << text.substr(start, end - start);
        start = end + 1;
    }
    EXPECT_NE(text.find("Men\xFC"), std::string::npos);
    EXPECT_EQ(text.find('\t'), std::string::npos);
}

TEST_F(HelpMenu, HelpFileNamesEveryMenuEntry) {
    StartProgram();
    const QString text = QString::fromLatin1(Help().data());
    for (const QAction* entry : main->findChildren<QAction*>()) {
        if (!entry->objectName().startsWith("mnu") || !entry->isVisible()) continue;
        if (entry->objectName().endsWith(")")) continue; // F2 to F12
        const QString caption = entry->text().remove('&').trimmed();
        EXPECT_TRUE(text.contains(caption)) << caption.toStdString();
    }
}

TEST_F(HelpMenu, MissingEditorIsToldWithTheNameOfTheFile) {
    StartProgram();
    Answer(QMessageBox::Ok);
    Choose("mnuHilfe");
    ASSERT_EQ(Boxes.size(), 1u);
    EXPECT_EQ(Boxes[0].Title, "Hilfe");
    EXPECT_EQ(Boxes[0].Text, "Hilfe finden Sie in der Datei QUORVANE.DOC");
}

} // namespace quorvane
