// The interface select dialog: one tab for each kind of DMX interface, with its picture and with what stands
// behind it on this machine. OK makes the chosen kind the program's interface; leaving it any other way
// changes nothing.
#pragma once

#include <QDialog>

class QLabel;
class QLayout;
class QPushButton;
class QTabBar;

namespace quorvane {

class frmIFS : public QDialog {
public:
    explicit frmIFS(QWidget* parent);

    QTabBar* tabs_ifselect; // position 0..4 is interface type 1..5
    QLabel* picModell;      // the model's picture from the program folder, or its name in an empty frame
    QLabel* lblModell;
    QLabel* lblBeschreibung;
    QLabel* lblTreiber; // what stands behind the tab on this machine
    QPushButton* cmdOK;
    QPushButton* cmdAbbrechen;

private:
    QLayout* Arrangement();
    void tabs_ifselect_Click(int position);
    void ShowPicture(int position);
    void cmdOK_Click();
};

} // namespace quorvane
