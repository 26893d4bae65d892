#include "ui/questions.h"

#include "model/colour.h"
#include "platform/host.h"
#include "ui/shown.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>

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

QMainWindow* MainWindow() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* main = qobject_cast<QMainWindow*>(window)) return main;
    return nullptr;
}

// The window that a message stands before: the active one, or the main window when none is active yet.
QWidget* Questioned() {
    if (QWidget* active = QApplication::activeWindow()) return active;
    QWidget* main = MainWindow();
    return main && main->isVisible() ? main : nullptr;
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

// The program's own dialogs and not the desktop's, which may be of another look and language.
QFileDialog* MakeFileDialog(QWidget* window) {
    auto* dialog = new FileDialog(window);
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    return dialog;
}

QColorDialog* MakeColourDialog(QWidget* window) {
    auto* dialog = new QColorDialog(window);
    dialog->setOption(QColorDialog::DontUseNativeDialog);
    dialog->setWindowTitle("Farbe wählen");
    return dialog;
}

// The one of its kind that is kept below the main window.
template<class Dialog> Dialog& Kept(Dialog* (*make)(QWidget*), const std::function<void()>& afterTick) {
    QMainWindow* window = MainWindow();
    if (auto* made = window ? window->findChild<Dialog*>({}, Qt::FindDirectChildrenOnly) : nullptr)
        return *made;
    afterTick();
    return *make(window);
}

// Nothing is left of the question before.
void Propose(QFileDialog& dialog, const QString& folder, const QString& name) {
    dialog.resize(760, 480); // wide enough for sizes and dates to stand in full
    dialog.setHistory({});
    dialog.setDirectory(folder);
    dialog.findChild<QLineEdit*>("fileNameEdit")->clear(); // an empty name would leave that one
    dialog.selectFile(name);
}

std::optional<std::string> AskFile(const FileQuestion& question, QFileDialog::AcceptMode mode,
                                   const std::function<void()>& afterTick) {
    QFileDialog& dialog = Kept(MakeFileDialog, afterTick);
    const QString filter = Shown(question.Filter);
    dialog.setWindowTitle(Shown(question.Title));
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setNameFilter(filter + ' ' + filter.toLower()); // files from elsewhere come in either case
    dialog.setDefaultSuffix(Shown(question.Extension));
    Propose(dialog, Shown(question.Folder), Shown(question.Name));
    afterTick();
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return QDir::toNativeSeparators(dialog.selectedFiles().constFirst()).toStdString();
}

std::optional<std::uint32_t> AskColourByDialog(std::uint32_t initial,
                                               const std::function<void()>& afterTick) {
    QColorDialog& dialog = Kept(MakeColourDialog, afterTick);
    const ScreenColour start = SplitScreenColour(initial);
    dialog.setCurrentColor(QColor(start.Red, start.Green, start.Blue));
    afterTick();
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    const QColor chosen = dialog.selectedColor();
    return ScreenColourNumber({static_cast<std::uint8_t>(chosen.red()),
                               static_cast<std::uint8_t>(chosen.green()),
                               static_cast<std::uint8_t>(chosen.blue())});
}

} // namespace

void AskByDialogs(const std::function<void()>& afterTick) {
    Host.MsgBox = AskByBox;
    Host.AskOpenFile = [afterTick](const FileQuestion& question) {
        return AskFile(question, QFileDialog::AcceptOpen, afterTick);
    };
    Host.AskSaveFile = [afterTick](const FileQuestion& question) {
        return AskFile(question, QFileDialog::AcceptSave, afterTick);
    };
    Host.AskColour = [afterTick](std::uint32_t initial) { return AskColourByDialog(initial, afterTick); };
    Host.Beep = [] { QApplication::beep(); };
}

} // namespace quorvane
