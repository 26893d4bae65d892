#include "ui/windowbench.h"

#include "app/pictures.h"
#include "ui/frmIFS.h"

#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QTabBar>

namespace quorvane {

class InterfaceSelectTest : public WindowBench {
protected:
    // Chooses "Karte initialisieren" and, in the dialog that follows, a tab and a button.
    void Initialise(int tab, const char* button) {
        WhenAsked([this, tab, button](QDialog* asked) {
            ASSERT_EQ(asked->objectName(), "frmIFS");
            auto* tabs = asked->findChild<QTabBar*>("tabs_ifselect");
            firstTab = tabs->currentIndex();
            QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab).center());
            model = asked->findChild<QLabel*>("lblModell")->text().toStdString();
            QTest::mouseClick(asked->findChild<QPushButton*>(button), Qt::LeftButton);
        });
        Choose("mnuDMXInit");
    }

    // What each tab shows, from the first to the fifth; the dialog is left by its close box.
    void LookAtTabs() {
        WhenAsked([this](QDialog* asked) {
            auto* tabs = asked->findChild<QTabBar*>("tabs_ifselect");
            ASSERT_EQ(tabs->count(), 5);
            shownTabs.clear();
            for (int tab = 0; tab < 5; ++tab) {
                QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab).center());
                auto* picture = asked->findChild<QLabel*>("picModell");
                shownTabs.push_back({asked->findChild<QLabel*>("lblModell")->text().toStdString(),
                                     asked->findChild<QLabel*>("lblBeschreibung")->text().toStdString(),
                                     asked->findChild<QLabel*>("lblTreiber")->text().toStdString(),
                                     picture->text().toStdString(), picture->pixmap().toImage()});
                EXPECT_EQ(picture->frameShape(), QFrame::StyledPanel);
            }
            asked->close();
        });
        Choose("mnuDMXInit");
    }
    // A picture of one colour in the program folder.
    void Paint(const char* name, Qt::GlobalColor colour, int width = 90, int height = 50) {
        QImage picture(width, height, QImage::Format_RGB32);
        picture.fill(colour);
        ASSERT_TRUE(picture.save(Folder.filePath(name), "PNG"));
    }
    // The colour in the middle of a tab's picture.
    QColor Middle(int tab) {
        const QImage& picture = shownTabs.at(static_cast<std::size_t>(tab)).Picture;
        return picture.isNull() ? QColor() : picture.pixelColor(picture.rect().center());
    }

    struct ShownTab {
        std::string Model, Description, Driver, InsteadOfPicture;
        QImage Picture;
    };
    std::vector<ShownTab> shownTabs;
    int firstTab = -1;
    std::string model;
};

TEST_F(InterfaceSelectTest, EachTabHasItsModelAndItsText) {
    StartProgram();
    LookAtTabs();
    const std::vector<std::string> models{"7300A, 7300B-LC, 7300B", "7300C", "USBLINK1, USBLINK2", "8300A",
                                          "7310PCI, 8310PCI"};
    const std::vector<std::string> descriptions{
        "ISA-Karte mit einem DMX-512-Ausgang", "ISA-Karte mit einem DMX-512-Ausgang, neuere Bauform",
        "USB-Interface oder eingebaute Netzwerkausgabe (sACN, Art-Net)", "PCMCIA-Karte für tragbare Rechner",
        "PCI-Karte"};
    for (std::size_t tab = 0; tab < 5; ++tab) {
        EXPECT_EQ(shownTabs[tab].Model, models[tab]);
        EXPECT_EQ(shownTabs[tab].Description, descriptions[tab]);
        EXPECT_NE(shownTabs[tab].Driver, "");
    }
}

TEST_F(InterfaceSelectTest, PicturesComeFromTheProgramFolderWhateverTheCaseOfTheirNames) {
    Paint("7300B.JPG", Qt::red);
    Paint("7300c.jpg", Qt::green);
    Paint("UsbLink2.jpg", Qt::blue);
    Paint("8300a.Jpg", Qt::cyan);
    Paint("7310pci.jpg", Qt::yellow);
    StartProgram();
    LookAtTabs();
    const std::vector<Qt::GlobalColor> colours{Qt::red, Qt::green, Qt::blue, Qt::cyan, Qt::yellow};
    for (int tab = 0; tab < 5; ++tab)
        EXPECT_EQ(Middle(tab), QColor(colours.at(static_cast<std::size_t>(tab))));
}

TEST_F(InterfaceSelectTest, PictureOfTheUsbTabFollowsTheModelFound) {
    Paint("usblink1.jpg", Qt::red);
    Paint("usblink2.jpg", Qt::blue);
    StartProgram();
    struct Case {
        int kind;
        Qt::GlobalColor colour;
    };
    for (const Case& c :
         {Case{10, Qt::blue}, Case{13, Qt::blue}, Case{3, Qt::red}, Case{14, Qt::red}, Case{0, Qt::red}}) {
        UsbKind = c.kind;
        LookAtTabs();
        EXPECT_EQ(Middle(2), QColor(c.colour)) << c.kind;
    }
}

TEST_F(InterfaceSelectTest, MissingOrBrokenPictureLeavesAFrameWithTheModelsName) {
    Write("7300b.jpg", "this is no picture");
    StartProgram();
    LookAtTabs();
    for (const ShownTab& tab : shownTabs) {
        EXPECT_TRUE(tab.Picture.isNull());
        EXPECT_EQ(tab.InsteadOfPicture, tab.Model);
    }
}

TEST_F(InterfaceSelectTest, PictureOfAnotherShapeKeepsItAndFits) {
    Paint("7300b.jpg", Qt::red, 3000, 1000);
    StartProgram();
    LookAtTabs();
    EXPECT_EQ(shownTabs[0].Picture.size(), QSize(360, 120));
}

TEST_F(InterfaceSelectTest, FreshProgramFolderGetsThePicturesAndKeepsThoseOfItsOwn) {
    Paint("7300C.JPG", Qt::green);
    PlacePictures(Folder.path().toStdString());
    EXPECT_EQ(QDir(Folder.path()).entryList({"*.jpg"}, QDir::Files, QDir::Name).size(), 6);
    StartProgram();
    LookAtTabs();
    for (int tab = 0; tab < 5; ++tab) EXPECT_TRUE(Middle(tab).isValid()) << tab;
    EXPECT_EQ(Middle(1), QColor(Qt::green)) << "what somebody put there stays";
    EXPECT_EQ(shownTabs[0].Picture.size(), QSize(360, 200));
}

TEST_F(InterfaceSelectTest, FolderThatTakesNoPicturesDoesNoHarm) {
    PlacePictures((Folder.path() + "/missing").toStdString());
    EXPECT_FALSE(QDir(Folder.path() + "/missing").exists());
}

TEST_F(InterfaceSelectTest, TabsTellWhatStandsBehindThemOnThisMachine) {
    Host.UsbDriver = {DriverOrigin::BuiltIn, "sACN, Universum 1, an 127.0.0.1", ""};
    Host.CardDriver = {DriverOrigin::Library, "dmxcrd32.so", ""};
    StartProgram();
    LookAtTabs();
    EXPECT_NE(shownTabs[0].Driver.find("Keine Karte gefunden."), std::string::npos);
    EXPECT_NE(shownTabs[2].Driver.find("sACN, Universum 1, an 127.0.0.1"), std::string::npos);
    EXPECT_NE(shownTabs[3].Driver.find("dmxcrd32.so"), std::string::npos);
}

TEST_F(InterfaceSelectTest, PresentTypeIsChosenAndOkStoresTheNewOne) {
    StartProgram();
    Initialise(4, "cmdOK");
    EXPECT_EQ(firstTab, 2);
    EXPECT_EQ(model, "7310PCI, 8310PCI");
    EXPECT_EQ(Show.InterfaceType, PciCard);
    EXPECT_EQ(Settings["Interface/Type"], "5");
    EXPECT_EQ(Caption(), ": ");
}

TEST_F(InterfaceSelectTest, LeavingWithoutOkChangesNothing) {
    StartProgram();
    Initialise(0, "cmdAbbrechen");
    EXPECT_EQ(Show.InterfaceType, UsbInterface);
    EXPECT_EQ(Settings["Interface/Type"], "3");
    Ticks(1);
    EXPECT_EQ(Frames.size(), 1u) << "the output that the search stopped goes on";
    LookAtTabs(); // and its close box
    EXPECT_EQ(Show.InterfaceType, UsbInterface);
    EXPECT_EQ(Settings["Interface/Type"], "3");
}

TEST_F(InterfaceSelectTest, CaptionGoesOnSayingWhatTheSearchSaidLastWithoutOk) {
    StartProgram();
    Initialise(2, "cmdOK");
    EXPECT_EQ(Caption(), ": ");
    Initialise(2, "cmdAbbrechen");
    EXPECT_EQ(Caption(), "QUORVANE: HALVENOR USBLINK2 Interface opened succesfully");
}

TEST_F(InterfaceSelectTest, EscapeChangesNothingAndReturnIsOk) {
    StartProgram();
    for (const auto& [key, stored] : {std::pair{Qt::Key_Escape, "3"}, std::pair{Qt::Key_Return, "5"}}) {
        WhenAsked([key = key](QDialog* asked) {
            auto* tabs = asked->findChild<QTabBar*>("tabs_ifselect");
            QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(4).center());
            QTest::keyClick(asked, key);
        });
        Choose("mnuDMXInit");
        EXPECT_EQ(Settings["Interface/Type"], stored);
    }
}

TEST_F(InterfaceSelectTest, FirstTabIsShownWithoutAnInterface) {
    Settings["Interface/Type"] = "0";
    Answer(QMessageBox::Ok);
    StartProgram();
    Initialise(2, "cmdAbbrechen");
    EXPECT_EQ(firstTab, 0);
}

TEST_F(InterfaceSelectTest, PlaceIsKeptForTheNextTime) {
    StartProgram();
    const QRect place(120, 90, 640, 560);
    WhenAsked([place](QDialog* asked) {
        asked->setGeometry(place);
        asked->close();
    });
    Choose("mnuDMXInit");
    EXPECT_EQ(Show.WindowPos[InterfaceSelectWindow][PosLeft], 120 * 15);
    WhenAsked([place](QDialog* asked) {
        EXPECT_EQ(asked->geometry(), place);
        asked->close();
    });
    Choose("mnuDMXInit");
}

TEST_F(InterfaceSelectTest, FoundUsbInterfaceBecomesActiveAndRunsAtOnce) {
    StartProgram();
    Initialise(2, "cmdOK");
    EXPECT_EQ(Show.ActiveInterface, UsbInterface);
    EXPECT_TRUE(Show.AutoXmit.Enabled);
    Ticks(1);
    EXPECT_EQ(Frames.size(), 1u);
}

TEST_F(InterfaceSelectTest, DmxEntriesAreHiddenForTypesWithoutStartAndStop) {
    StartProgram();
    Initialise(2, "cmdOK");
    EXPECT_FALSE(Entry("mnuDMXStart")->isVisible());
    Initialise(0, "cmdOK");
    EXPECT_TRUE(Entry("mnuDMXStart")->isVisible());
    EXPECT_TRUE(Entry("mnuDMXStart")->isEnabled());
    EXPECT_TRUE(Entry("mnuDMXStop")->isVisible());
}

} // namespace quorvane
