#include "ui/frmOptions.h"

#include "devices/outputoptions.h"
#include "model/show.h"
#include "model/text.h"
#include "platform/host.h"
#include "ui/field.h"
#include "ui/shown.h"

#include <QCheckBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTimer>

namespace quorvane {

namespace {

constexpr const char* Automatic = "Auto";

std::size_t At(int index) { return static_cast<std::size_t>(index); }

// The stored name behind each path field.
constexpr std::array<std::string ShowState::*, 4> fileNames{
    &ShowState::ConfigFile, &ShowState::SceneFile, &ShowState::SequenceFile, &ShowState::ColourTableFile};

std::int32_t NumberIn(const Field* field) { return TypedNumber(field->text().toStdString()); }

// Sets a box to what the show has, unless the user has changed it since it was shown last.
void Follow(QAbstractButton* box, bool& shown, bool now) {
    if (box->isChecked() == shown) box->setChecked(now);
    shown = now;
}

} // namespace

// Everything as the show has it.
void frmOptions::Form_Load() {
    messages.clear();
    for (Field* field : txtDMX) field->Put(field->text());
    for (Field* field : txtPath) field->Put(field->text());
    shownAutomatic = cckAutoDMXmax->isChecked();
    shownReload = chkAutoStart->isChecked();
    shownSoftware = OptDMXSend[1]->isChecked();
    Form_Activate();
}

// The interface, the wall and the files may be others than when the window was last looked at.
void frmOptions::Form_Activate() {
    Follow(cckAutoDMXmax, shownAutomatic, Show.StatusFlags.Has(Status::AutoChannelCount));
    Follow(chkAutoStart, shownReload, Show.StatusFlags.Has(Status::ReloadFiles));
    const bool software = Show.DmxIni[5] != 0;
    if (OptDMXSend[1]->isChecked() == shownSoftware) OptDMXSend.at(software ? 1 : 0)->setChecked(true);
    shownSoftware = software;
    for (int index = 0; index < 4; ++index)
        if (Field* field = txtPath.at(At(index)); !field->Edited())
            field->Put(Shown(Show.*fileNames.at(At(index))));
    unlockDMX();
    FillFields();
}

void frmOptions::unlockDMX() {
    for (int index = StartSync; index <= SendRepeat; ++index)
        txtDMX.at(At(index))->setEnabled(FixedOption(Show.InterfaceType, index).empty());
    if (cckAutoDMXmax->isChecked()) txtDMX[SendChannels]->setEnabled(false);
    cckAutoDMXmax->setEnabled(true);
}

void frmOptions::FillFields() {
    for (int index = StartSync; index <= SendRepeat; ++index) {
        Field* field = txtDMX.at(At(index));
        const std::string_view fixed = FixedOption(Show.InterfaceType, index);
        if (!fixed.empty())
            field->Put(Shown(fixed));
        else if (!field->Edited() || (index == SendChannels && WallSetsCount(cckAutoDMXmax->isChecked())))
            field->Put(QString::number(StoredOption(index, cckAutoDMXmax->isChecked())));
    }
    ShowWarnings();
    ShowLength();
}

void frmOptions::ShowWarnings() {
    const auto warned = [this](int index) {
        const Field* field = txtDMX.at(At(index));
        return field->text() != Automatic && OptionWarning(index, NumberIn(field));
    };
    lblUSITT->setVisible(warned(StartSync));
    lblLeerlaufzeit->setVisible(warned(IdleTime));
}

// Whole milliseconds stand without decimals.
void frmOptions::ShowLength() {
    BerechneSendelänge(Options());
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    const std::int64_t tenths = SendLengthTenths();
    txtDMX[LengthField]->setText(
        locale.toString(static_cast<double>(tenths) / 10, 'f', tenths % 10 == 0 ? 0 : 1) + " ms");
}

OutputOptions frmOptions::Options() const {
    OutputOptions options;
    for (int index = StartSync; index <= SendRepeat; ++index)
        if (const Field* field = txtDMX.at(At(index)); field->text() != Automatic)
            options.Fields[index] = NumberIn(field);
    options.SoftwareRepeat = OptDMXSend[1]->isChecked();
    return options;
}

void frmOptions::txtDMX_LostFocus(int index) {
    Field* field = txtDMX.at(At(index));
    const bool closing = !Show.StatusFlags.Has(Status::OptionsWindowOpen);
    if (closing || !field->isEnabledTo(this)) return; // the window itself may be off during a transfer
    const std::int32_t typed = NumberIn(field);
    const OptionCheck check = CheckOption(index, typed);
    field->setText(QString::number(check.Value));
    ShowWarnings();
    if (check.Message.empty()) return;
    messages.append(Shown(check.Message));
    QTimer::singleShot(0, this, [this] { ShowMessagesWhenIdle(); });
}

// A box that came up between press and release would swallow the click that moved the focus.
void frmOptions::ShowMessagesWhenIdle() {
    constexpr int momentMs = 20;
    if (QGuiApplication::mouseButtons() == Qt::NoButton)
        ShowMessages();
    else
        QTimer::singleShot(momentMs, this, [this] { ShowMessagesWhenIdle(); });
}

void frmOptions::ShowMessages() {
    while (!messages.isEmpty()) ShowMessage(messages.takeFirst().toStdString());
}

void frmOptions::tbsOptions_Click(int position) { pages->setCurrentIndex(position); }

void frmOptions::cckAutoDMXmax_Click() {
    unlockDMX();
    FillFields();
}

void frmOptions::cmdDefaultDMX_Click() {
    messages.clear(); // of values that are gone now
    for (int index = StartSync; index <= SendRepeat; ++index)
        if (FixedOption(Show.InterfaceType, index).empty())
            txtDMX.at(At(index))->setText(QString::number(DefaultOption(index, cckAutoDMXmax->isChecked())));
    OptDMXSend[0]->setChecked(true);
    ShowWarnings();
}

// False when nothing could be taken over.
bool frmOptions::Apply() {
    CheckFocusedField();
    ShowMessages();
    Form_Activate(); // what was not changed here is not taken from here
    if (!TakeOptions(Options())) return false;
    Show.StatusFlags.Put(Status::AutoChannelCount, cckAutoDMXmax->isChecked());
    Show.StatusFlags.Put(Status::ReloadFiles, chkAutoStart->isChecked());
    for (int index = 0; index < 4; ++index)
        if (const Field* field = txtPath.at(At(index)); field->Edited())
            Show.*fileNames.at(At(index)) = field->text().trimmed().toStdString();
    Form_Load();
    return true;
}

void frmOptions::cmdOK_Click() {
    if (Apply()) Frame()->close();
}

void frmOptions::cmdCancel_Click() { Frame()->close(); }

void frmOptions::cmdApply_Click() { Apply(); }

// The window is active again, after a dialog of another command for one.
bool frmOptions::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) Form_Activate();
    return ChildWindow::event(event);
}

void frmOptions::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: cmdOK_Click(); break;
    case Qt::Key_Escape: cmdCancel_Click(); break;
    default: ChildWindow::keyPressEvent(event);
    }
}

// What is left without OK need not be advised on.
void frmOptions::closeEvent(QCloseEvent* event) {
    ChildWindow::closeEvent(event);
    messages.clear();
}

QSize frmOptions::Within(const QSize& area, const QSize& own) const {
    return ChildWindow::Within(area, own.expandedTo(minimumSizeHint()));
}

} // namespace quorvane
