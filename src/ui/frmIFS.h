// The interface select dialog: one tab for each kind of DMX interface. OK makes the chosen kind the
// program's interface; leaving it any other way changes nothing.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QTabBar;

namespace quorvane {

class frmIFS : public QDialog {
public:
    explicit frmIFS(QWidget* parent);

    QTabBar* tabs_ifselect; // position 0..4 is interface type 1..5
    QLabel* lblModell;
    QLabel* lblBeschreibung;
    QPushButton* cmdOK;
    QPushButton* cmdAbbrechen;

private:
    void tabs_ifselect_Click(int position);
    void cmdOK_Click();
};

} // namespace quorvane
