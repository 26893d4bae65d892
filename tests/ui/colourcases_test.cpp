// What the colour window does with colours, the table and the selection, worked out command by command.
#include "bench/samples.h"
#include "ui/colourbench.h"

#include <QColorDialog>
#include <QSignalBlocker>

namespace quorvane {

class ColourCases : public ColourBench {
protected:
    // The case names the minimum rule with each command and lets nothing follow from its coming and going.
    void PutMinimum(bool on) {
        const QSignalBlocker quiet(Minimum());
        Minimum()->setChecked(on);
        for (int index = 0; index < 4; ++index) {
            const QSignalBlocker quietSlider(Slider(index));
            Slider(index)->setMinimum(on ? 1 : 0);
        }
    }
    // A slider that stands there already is moved away first, or else it would tell nobody.
    void MoveSlider(int index, int level) {
        const int reached = std::max(level, Slider(index)->minimum());
        Move(index, reached == 255 ? 254 : reached + 1);
        Move(index, reached);
    }
    void Select(const nlohmann::json& elements) {
        Click(ElementField(1));
        Click(ElementField(1), Qt::ControlModifier);
        for (const int element : elements) Click(ElementField(element), Qt::ControlModifier);
    }
    void Choose(std::uint32_t screen) {
        WhenAsked([screen](QDialog* asked) {
            const QColor chosen(static_cast<int>(screen & 0xFF), static_cast<int>(screen >> 8 & 0xFF),
                                static_cast<int>(screen >> 16 & 0xFF));
            qobject_cast<QColorDialog*>(asked)->setCurrentColor(chosen);
            asked->accept();
        });
        Click(Button(2));
        QApplication::setActiveWindow(main.get()); // which no window manager does here
    }
    // The case renames colours that are not picked, which the number field alone does not allow.
    void Rename(int number, const std::string& name) {
        Replace(NameOfColour(), "");
        QTest::keyClicks(NameOfColour(), QString::fromStdString(name));
        NumberOfColour()->setText(QString::number(number));
        Key(Qt::Key_Tab);
    }
    void Run(const nlohmann::json& command) {
        const std::string what = command.at("do");
        PutMinimum(command.at("minimum"));
        if (what == "fetch") Click(Button(0));
        if (what == "apply") Click(Button(1));
        if (what == "dialog") Choose(command.at("screen"));
        if (what == "store") Click(Button(3));
        if (what == "store" || what == "pick") Click(Swatch(command.at("n")));
        if (what == "rename") Rename(command.at("n"), command.at("name"));
        if (what == "slider") MoveSlider(command.at("index"), command.at("value"));
        if (what == "select") Select(command.at("selected"));
    }
};

TEST_F(ColourCases, WindowLeavesColourTableAndWallAsWorkedOut) {
    const auto sample = Sample("002-colour");
    StartWithWall(static_cast<int>(sample.at("script").at(0).at("values").size()), 1);
    OpenColours();
    int number = 0;
    for (const auto& command : sample.at("script")) {
        SCOPED_TRACE("command " + std::to_string(++number) + " " + command.dump());
        Run(command);
        EXPECT_EQ(Show.CurrentColour, quorvane::LevelsOf(command.at("CurrentColour")));
        EXPECT_EQ(Show.SelectedUserColour, command.at("SelectedUserColour").get<int>());
        EXPECT_EQ(LiveLevels(), command.at("values"));
        // The case leaves a scene without a file unmarked as new; here it is marked, so that its loss is
        // asked about.
        int marks = command.at("ChangeFlags");
        if ((marks & 0x08) != 0) marks |= 0x04;
        EXPECT_EQ(Show.ChangeFlags.bits, marks);
        if (HasFailure()) return;
    }
    EXPECT_EQ(number, 80);
    for (int colour = 1; colour <= 20; ++colour) {
        const auto index = static_cast<std::size_t>(colour - 1);
        EXPECT_EQ(Show.UserColour[colour], quorvane::LevelsOf(sample.at("UserColour").at(index)));
        EXPECT_EQ(Show.UserColourName[colour], sample.at("UserColourName").at(index).get<std::string>());
    }
}

} // namespace quorvane
