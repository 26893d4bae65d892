// The interface select dialog: one tab for each kind of DMX interface, with its picture and with what stands
// behind it on this machine. It only asks: whoever opened it makes the chosen kind the program's interface.
#pragma once

#include <QDialog>

#include <cstdint>

class QLabel;
class QLayout;
class QPushButton;
class QTabBar;

namespace quorvane {

class frmIFS : public QDialog {
public:
    explicit frmIFS(QWidget* parent);

    std::int16_t SelectedType() const; // 1..5

    QTabBar* tabs_ifselect; // position 0..4 is interface type 1..5
    QLabel* picModell;      // the model's picture from the program folder, or its name in an empty frame
    QLabel* lblModell;
    QLabel* lblBeschreibung;
    QLabel* lblTreiber; // what stands behind the tab on this machine
    QPushButton* cmdOK;
    QPushButton* cmdAbbrechen;

protected:
    void done(int result) override;

private:
    QLayout* Arrangement();
    void tabs_ifselect_Click(int position);
    void ShowPicture(int position);
};

} // namespace quorvane
