#include "ui/frmNeueWand.h"

#include "files/filechoice.h"
#include "files/newwall.h"
#include "model/show.h"
#include "model/text.h"
#include "platform/host.h"
#include "ui/field.h"
#include "ui/geometry.h"
#include "ui/shown.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace quorvane {

namespace {

constexpr int Margin = 16;  // pixels
constexpr int Spacing = 8;  // between controls that belong together
constexpr int Section = 16; // between groups of them

// Of txtfeld.
enum Position : int { Name, Columns, Rows, AreaWidth, AreaHeight, Size, Total };

struct FieldText {
    const char* Label;
    const char* Default;
    const char* AccessibleName;
};

constexpr std::array<FieldText, 7> texts{{
    {"Name der Wand :", "Wandname", "Name der Wand"},
    {"Horizontal :", "10", "Elemente horizontal"},
    {"Vertikal :", "5", "Elemente vertikal"},
    {"Breite :", "600", "Breite der Elemente"},
    {"Höhe :", "1200", "Höhe der Elemente"},
    {" Relative Grösse zum Original :", "100", "Relative Größe zum Original"},
    {" Anzahl der Elemente insgesamt:", "50", "Anzahl der Elemente insgesamt"},
}};

std::size_t At(int index) { return static_cast<std::size_t>(index); }

QPushButton* Button(const char* name, const char* caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAccessibleName(QString(caption).remove('&'));
    return button;
}

std::int32_t NumberIn(const Field* field) { return TypedNumber(field->text().toStdString()); }

} // namespace

frmNeueWand::frmNeueWand(QWidget* parent)
    : QDialog(parent), lblStatus(new QLabel), cmdOK(Button("cmdOK", "&OK")),
      cmdAbbrechen(Button("cmdAbbrechen", "&Abbrechen")) {
    setObjectName("frmNeueWand");
    setWindowTitle(ShownAsTitle("Wandeinstellungen " + FileNamePart(Show.ConfigFile)));
    lblStatus->setObjectName("lblStatus");
    lblStatus->setAccessibleName("Statuszeile der Wandeinstellungen");
    lblStatus->setTextFormat(Qt::PlainText);
    MakeFields();
    setLayout(Arrangement());
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    connect(cmdAbbrechen, &QPushButton::clicked, this, &QDialog::reject);
    Form_Load();
    PlaceDialog(*this, NewWallWindow);
}

void frmNeueWand::MakeFields() {
    for (int index = Name; index <= Total; ++index) {
        const FieldText& text = texts.at(At(index));
        auto* field = new Field(QString("txtfeld(%1)").arg(index), text.AccessibleName);
        field->setText(text.Default);
        if (index != Name) field->setFixedWidth(field->fontMetrics().horizontalAdvance("0000000000"));
        if (index != Name) field->setAlignment(Qt::AlignRight);
        txtfeld.at(At(index)) = field;
        auto* label = new QLabel(text.Label);
        label->setObjectName(QString("lbltxtFeld(%1)").arg(index));
        label->setTextFormat(Qt::PlainText);
        lbltxtFeld.at(At(index)) = label;
        if (index == Total) continue;
        field->KeyUp = [this, index](int, const QString& typed) { txtfeld_KeyUp(index, typed); };
        connect(field, &QLineEdit::textChanged, this, [this, index] { txtfeld_Change(index); });
    }
    txtfeld[Total]->setReadOnly(true);
    txtfeld[Total]->setFocusPolicy(Qt::NoFocus);
    QPalette shown = txtfeld[Total]->palette();
    shown.setColor(QPalette::Base, palette().color(QPalette::Window));
    txtfeld[Total]->setPalette(shown);
}

// Two fields in a line, under the heading that they share.
QWidget* frmNeueWand::Group(const char* title, int first) {
    auto* group = new QGroupBox(title);
    auto* line = new QHBoxLayout(group);
    line->setContentsMargins(Spacing, Spacing, Spacing, Spacing);
    line->setSpacing(Spacing);
    for (int index = first; index <= first + 1; ++index) {
        if (index > first) line->addSpacing(Section);
        line->addStretch();
        QLabel* label = lbltxtFeld.at(At(index));
        const int inOtherGroup = first == Columns ? index + 2 : index - 2; // its field stands in line
        label->setMinimumWidth(lbltxtFeld.at(At(inOtherGroup))->sizeHint().width());
        line->addWidget(label);
        line->addWidget(txtfeld.at(At(index)));
    }
    return group;
}

QLayout* frmNeueWand::Arrangement() {
    auto* name = new QHBoxLayout;
    name->setSpacing(Spacing);
    name->addWidget(lbltxtFeld[Name]);
    name->addWidget(txtfeld[Name], 1);
    QWidget* distribution = Group(" Verteilung der Elemente", Columns);
    const QMargins frame = distribution->contentsMargins();
    auto* sizes = new QGridLayout; // in line with the fields of the groups
    sizes->setContentsMargins(frame.left() + Spacing, 0, frame.right() + Spacing, 0);
    sizes->setSpacing(Spacing);
    for (int row = 0; row < 2; ++row) {
        sizes->addWidget(lbltxtFeld.at(At(Size + row)), row, 0);
        sizes->addWidget(txtfeld.at(At(Size + row)), row, 1);
    }
    sizes->setColumnStretch(0, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Spacing);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdAbbrechen);

    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Spacing);
    layout->addLayout(name);
    layout->addSpacing(Spacing);
    layout->addWidget(distribution);
    layout->addWidget(Group(" Größe der Elemente in cm", AreaWidth));
    layout->addLayout(sizes);
    layout->addSpacing(Spacing);
    layout->addWidget(lblStatus);
    layout->addLayout(buttons);
    return layout;
}

void frmNeueWand::Form_Load() {
    if (Show.StatusFlags.Has(Status::WallExists)) {
        txtfeld[Name]->setText(Shown(TrimmedRight(Show.WallName)));
        txtfeld[Columns]->setText(QString::number(Show.WallColumns));
        txtfeld[Rows]->setText(QString::number(Show.WallRows));
        txtfeld[AreaWidth]->setText(QString::number(Show.WallAreaWidth));
        txtfeld[AreaHeight]->setText(QString::number(Show.WallAreaHeight));
        txtfeld[Size]->setText(QString::number(Show.ElementSize));
    } else
        lblStatus->setText("Bitte geben Sie die entsprechenden Werte ein");
    for (int index = Name; index <= Size; ++index) accepted.at(At(index)) = txtfeld.at(At(index))->text();
    txtfeld[Name]->selectAll();
}

// With a wall a refused key brings its present value back; without one, what stood before the key: the
// defaults must survive a slip.
void frmNeueWand::txtfeld_KeyUp(int index, const QString& typed) {
    if (index == Name || IsNumberText(typed)) return;
    txtfeld.at(At(index))->setText(accepted.at(At(index)));
    lblStatus->setText("Es sind nur Zahlen erlaubt!");
}

void frmNeueWand::txtfeld_Change(int index) {
    const QString text = txtfeld.at(At(index))->text();
    if (!Show.StatusFlags.Has(Status::WallExists) && IsNumberText(text)) accepted.at(At(index)) = text;
    const std::int64_t total =
        static_cast<std::int64_t>(NumberIn(txtfeld[Columns])) * NumberIn(txtfeld[Rows]);
    txtfeld[Total]->setText(QString::number(total));
}

void frmNeueWand::done(int result) {
    KeepDialogPlace(*this, NewWallWindow);
    QDialog::done(result);
}

void frmNeueWand::Refuse(const char* text, int index) {
    Host.Beep();
    ShowMessage(text);
    txtfeld.at(At(index))->setFocus();
    txtfeld.at(At(index))->selectAll();
}

void frmNeueWand::cmdOK_Click() {
    const std::string name = txtfeld[Name]->text().toStdString();
    WallMeasures wall{name,
                      NumberIn(txtfeld[Columns]),
                      NumberIn(txtfeld[Rows]),
                      NumberIn(txtfeld[AreaWidth]),
                      NumberIn(txtfeld[AreaHeight]),
                      NumberIn(txtfeld[Size])};
    const std::int64_t total = ElementsOf(wall);
    if (total > MaxHandmadeElements) {
        Refuse("Diese Version von DMX-QUORVANE unterstüzt nur bis zu 121 Elemente Maximal. Bitte ändern Sie "
               "die Anzahl Horizontaler und Vertikaler Elemente. ",
               Columns);
        return;
    }
    if (total == 0) {
        Refuse("Eine Wand kann nicht aus 0 Elementen bestehen. Bitte ändern Sie die Anzahl Horizontaler und "
               "Vertikaler Elemente. ",
               wall.Columns == 0 ? Columns : Rows);
        return;
    }
    if (wall.Size == 0) {
        Host.Beep();
        txtfeld[Size]->setText("1");
        wall.Size = 1;
    }
    ReplaceWall(wall);
    accept();
}

} // namespace quorvane
