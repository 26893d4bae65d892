// The options: the timing of the DMX line, and the files that come back at the start. What stands in the
// window reaches the show with OK and Übernehmen only; a field that nobody changed follows the show.
#pragma once

#include "ui/childwindow.h"

#include <QStringList>

#include <array>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLayout;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QTabBar;

namespace quorvane {

class Field;
struct OutputOptions;

class frmOptions : public ChildWindow {
public:
    frmOptions();

    QTabBar* tbsOptions;
    std::array<QWidget*, 4> picOptions{}; // the page of each tab

    // Start sync, start byte, idle time, interdigit time, channels, send repeat, and the length of one
    // transmission, which is only shown.
    std::array<Field*, 7> txtDMX{};
    std::array<QLabel*, 7> lblDMX{};
    QLabel* lblUSITT;        // start sync below the standard
    QLabel* lblLeerlaufzeit; // no idle time
    QCheckBox* cckAutoDMXmax;
    std::array<QRadioButton*, 2> OptDMXSend{}; // hardware, software repeat
    QPushButton* cmdDefaultDMX;

    QCheckBox* chkAutoStart;
    QLabel* lblAutoStart;
    std::array<Field*, 4> txtPath{}; // configuration, scene, sequence, colour table
    std::array<QLabel*, 4> lblPath{};

    QPushButton* cmdOK;
    QPushButton* cmdCancel;
    QPushButton* cmdApply;

protected:
    void Form_Load() override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    QSize Within(const QSize& area, const QSize& own) const override;

private:
    void MakeDmxFields();
    void MakePathFields();
    QWidget* DmxPage();
    QWidget* FilesPage();
    QLayout* DmxGrid();
    QWidget* RepeatGroup();
    void Arrange();
    void ConnectControls();

    void Form_Activate() override;
    void unlockDMX();
    void FillFields();
    void ShowWarnings();
    void ShowLength();
    OutputOptions Options() const;
    bool Apply();

    void txtDMX_LostFocus(int index);
    void tbsOptions_Click(int position);
    void cckAutoDMXmax_Click();
    void cmdDefaultDMX_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdApply_Click();
    void ShowMessages();
    void ShowMessagesWhenIdle();

    QStackedWidget* pages;
    QStringList messages; // of checks, until the move of the focus is done
    // What the boxes were set to; a box that stands otherwise has been changed by the user.
    bool shownAutomatic = false, shownReload = false, shownSoftware = false;
};

} // namespace quorvane
