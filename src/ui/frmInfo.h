// The info box: the program's name and version, in the middle of the screen.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

namespace quorvane {

class frmInfo : public QDialog {
public:
    explicit frmInfo(QWidget* parent);

    // Shows the box, closes it by itself after 5 seconds unless somebody does before, and returns then.
    void AutoUnload();

    QLabel* lblInfo;
    QPushButton* cmdInfo;

protected:
    void showEvent(QShowEvent* event) override;
};

} // namespace quorvane
