#include "ui/questions.h"

#include "model/colour.h"
#include "platform/host.h"
#include "ui/shown.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>
#include <QMessageBox>

#include <memory>
#include <utility>

namespace quorvane {

namespace {

QMessageBox::StandardButtons StandardButtons(Buttons buttons) {
    switch (buttons) {
    case Buttons::Ok: return QMessageBox::Ok;
    case Buttons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::AbortRetryIgnore: return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    }
    return QMessageBox::Ok;
}

// Escape and the close box leave a box by the button that changes least.
QMessageBox::StandardButton EscapeButton(Buttons buttons) {
    switch (buttons) {
    case Buttons::Ok: return QMessageBox::Ok;
    case Buttons::YesNo: return QMessageBox::No;
    case Buttons::AbortRetryIgnore: return QMessageBox::Abort;
    case Buttons::OkCancel:
    case Buttons::YesNoCancel: break;
    }
    return QMessageBox::Cancel;
}

QMessageBox::Icon BoxIcon(Icon icon) {
    switch (icon) {
    case Icon::None: return QMessageBox::NoIcon;
    case Icon::Question: return QMessageBox::Question;
    case Icon::Exclamation: return QMessageBox::Warning;
    case Icon::Critical: return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

Answer AnswerOf(int button) {
    switch (button) {
    case QMessageBox::Ok: return Answer::Ok;
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    case QMessageBox::Abort: return Answer::Abort;
    case QMessageBox::Retry: return Answer::Retry;
    case QMessageBox::Ignore: return Answer::Ignore;
    default: return Answer::Cancel;
    }
}

// The window that a question stands before: the active one, or the main window when none is active yet.
QWidget* Questioned() {
    if (QWidget* active = QApplication::activeWindow()) return active;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && qobject_cast<QMainWindow*>(window)) return window;
    return nullptr;
}

Answer AskByBox(std::string_view text, Buttons buttons, std::string_view title, Icon icon) {
    QMessageBox box(BoxIcon(icon), Shown(title), {}, StandardButtons(buttons), Questioned());
    box.setTextFormat(Qt::PlainText); // paths and names may hold < and &
    box.setText(Shown(text));
    box.setEscapeButton(EscapeButton(buttons));
    return AnswerOf(box.exec());
}

// A proposed name such as "*.QSC" is a hint and no file: the dialog stays open until a real name stands.
class FileDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

protected:
    void accept() override {
        for (const QString& file : selectedFiles()) {
            const QString name = QFileInfo(file).fileName();
            if (name.contains('*') || name.contains('?')) return;
        }
        QFileDialog::accept();
    }
};

std::optional<std::string> AskFile(const FileQuestion& question, QFileDialog::AcceptMode mode,
                                   const std::function<void()>& afterTick) {
    const QString filter = Shown(question.Filter);
    afterTick();
    const auto made =
        std::make_unique<FileDialog>(Questioned(), Shown(question.Title), Shown(question.Folder));
    FileDialog& dialog = *made;
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setNameFilter(filter + ' ' + filter.toLower()); // files from elsewhere come in either case
    dialog.setDefaultSuffix(Shown(question.Extension));
    dialog.resize(760, 480); // wide enough for sizes and dates to stand in full
    dialog.selectFile(Shown(question.Name));
    afterTick();
    const bool accepted = dialog.exec() == QDialog::Accepted;
    afterTick(); // it is cleared away on returning
    if (!accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return QDir::toNativeSeparators(dialog.selectedFiles().constFirst()).toStdString();
}

// The program's own dialog and not the desktop's, which may be of another look and language.
std::optional<std::uint32_t> AskColourByDialog(std::uint32_t initial) {
    const ScreenColour start = SplitScreenColour(initial);
    QColorDialog dialog(QColor(start.Red, start.Green, start.Blue), QApplication::activeWindow());
    dialog.setWindowTitle("Farbe wählen");
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    const QColor chosen = dialog.selectedColor();
    return ScreenColourNumber({static_cast<std::uint8_t>(chosen.red()),
                               static_cast<std::uint8_t>(chosen.green()),
                               static_cast<std::uint8_t>(chosen.blue())});
}

} // namespace

void AskByDialogs(std::function<void()> afterTick) {
    Host.MsgBox = AskByBox;
    Host.AskOpenFile = [afterTick](const FileQuestion& question) {
        return AskFile(question, QFileDialog::AcceptOpen, afterTick);
    };
    Host.AskSaveFile = [wait = std::move(afterTick)](const FileQuestion& question) {
        return AskFile(question, QFileDialog::AcceptSave, wait);
    };
    Host.AskColour = AskColourByDialog;
    Host.Beep = [] { QApplication::beep(); };
}

} // namespace quorvane
