// The new wall dialog: name, columns, rows and sizes of a wall, which then replaces the present one. It
// serves to change the present wall as well.
#pragma once

#include <QDialog>

#include <array>

class QLabel;
class QLayout;
class QPushButton;

namespace quorvane {

class Field;

class frmNeueWand : public QDialog {
public:
    explicit frmNeueWand(QWidget* parent);

    // Name, columns, rows, width, height, relative size, and the number of elements, which is only shown.
    std::array<Field*, 7> txtfeld{};
    std::array<QLabel*, 7> lbltxtFeld{};
    QLabel* lblStatus;
    QPushButton* cmdOK;
    QPushButton* cmdAbbrechen;

protected:
    void done(int result) override;

private:
    void MakeFields();
    QLayout* Arrangement();
    QWidget* Group(const char* title, int first);
    void Form_Load();
    void txtfeld_KeyUp(int index, const QString& typed);
    void txtfeld_Change(int index);
    void Refuse(const char* text, int index);
    void cmdOK_Click();

    std::array<QString, 6> accepted; // what each field goes back to when a key is refused
};

} // namespace quorvane
