#include "ui/windowbench.h"

#include "ui/frmIFS.h"

#include <QLabel>
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

    int firstTab = -1;
    std::string model;
};

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
