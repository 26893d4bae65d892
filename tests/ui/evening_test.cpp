// One evening's work, from the empty program to the next day, done with mouse and keys.
#include "ui/eveningbench.h"

#include <QMdiSubWindow>

#include <algorithm>
#include <numeric>

namespace quorvane {

class Evening : public EveningBench {
public:
    void PrepareTheDesk();
    void PaintByMouse();
    void PaintWithRememberedSelections();
    void PaintByKeysAndMenus();
    void Play();
    void Step();
    void ChangeATime();
    void DeleteAndThinkAgain();
    void SaveEverything();
    void LeaveWhilePlaying();
    void FindThePlayingSequence();
    void FindColoursAndSelections();
    void FindTheTimes();

    static std::vector<int> AllLamps() {
        std::vector<int> elements(Lamps);
        std::iota(elements.begin(), elements.end(), 1);
        return elements;
    }
    static std::vector<int> AllBut(const std::vector<int>& left) {
        std::vector<int> elements = AllLamps();
        std::erase_if(elements, [&](int element) { return std::ranges::count(left, element) > 0; });
        return elements;
    }
    // Notes what the wall must show now that these elements have taken this colour.
    void Note(const std::vector<int>& elements, const Levels& colour) {
        for (const int element : elements) picture.at(static_cast<std::size_t>(element - 1)) = colour;
    }
    // Into the four number fields, each left by Enter; the last leads to "Farbe übernehmen".
    void MixByNumbers(const Levels& colour) {
        Click(Number(0));
        for (const int level : colour) {
            auto* field = dynamic_cast<QLineEdit*>(QApplication::focusWidget());
            ASSERT_NE(field, nullptr);
            Key(Qt::Key_A, Qt::ControlModifier);
            Type(std::to_string(level).c_str());
            Key(Qt::Key_Return);
        }
        EXPECT_EQ(QApplication::focusWidget(), Button(1));
    }
    void Paint(const std::vector<int>& elements, const Levels& colour) {
        EXPECT_EQ(Selected(), elements);
        MixByNumbers(colour);
        Click(Button(1));
        Note(elements, colour);
    }

    const Levels Dusk{40, 0, 90, 0};
    const Levels Ember{255, 60, 0, 20};
    const Levels Ice{0, 120, 200, 130};
    const std::vector<int> FirstColumn{1, 11, 21, 31, 41};
    const std::vector<int> TopRow{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
};

void Evening::PrepareTheDesk() {
    StartProgram();
    EXPECT_EQ(Caption(), "QUORVANE: HALVENOR 7300C card found at address120h");
    MakeWallByDialog("Foyer & Garten");
    EXPECT_EQ(Show.ElementCount, Lamps);
    EXPECT_TRUE(main->Wand->isVisible());
    EXPECT_EQ(main->Wand->windowTitle(), "Foyer & Garten");
    Choose("mnuColorfenster");
    Choose("mnuTransporter");
    EXPECT_TRUE(main->Color->isVisible());
    EXPECT_TRUE(main->Control->isVisible());
}

void Evening::PaintByMouse() {
    Choose("mnuSelectAll");
    Paint(AllLamps(), Dusk);
    Record(2, 8);

    SelectByMouse(FirstColumn); // with a colour that is kept under a name
    Mix(Ember);
    Click(Button(1));
    Note(FirstColumn, Ember);
    Click(Button(3));
    Click(Swatch(5));
    Type("Glut");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Status(), "Namen der Farbe gespeichert");
    Record(3, 16);

    Choose("mnuInvertSelection"); // and at once while a slider moves
    Tick(AtOnce());
    Move(3, 200);
    Tick(AtOnce());
    Note(AllBut(FirstColumn), {255, 60, 0, 200});
    Record(1, 8);
}

void Evening::PaintWithRememberedSelections() {
    SelectByMouse(FirstColumn);
    KeyAtWall(Qt::Key_F2, Qt::ShiftModifier);
    EXPECT_EQ(WallStatus(), "Selectionen gemerkt .");
    SelectByMouse(TopRow);
    KeyAtWall(Qt::Key_F3, Qt::ShiftModifier);
    Paint(TopRow, Ice);
    Record(5, 32);

    Key(Qt::Key_F2); // from the sequencer, and with a kept colour
    EXPECT_EQ(Selected(), FirstColumn);
    Click(Swatch(5));
    Click(Button(1));
    Note(FirstColumn, Ember);
    Record(4, 8);

    Choose("mnuMusterAusw(1)"); // F3
    EXPECT_EQ(Selected(), TopRow);
    ClickElement(50, Qt::ControlModifier);
    Choose("mnuMusterHinzu(9)"); // F11
    std::vector<int> elements = TopRow;
    elements.push_back(50);
    Paint(elements, {9, 8, 7, 6});
    Record(1, 8);
}

void Evening::PaintByKeysAndMenus() {
    ClickElement(11); // one element gives its colour to another
    Click(Button(0));
    EXPECT_EQ(Current(), Ember);
    ClickElement(50);
    Click(Button(1));
    Note({50}, Ember);
    Record(2, 16);

    ClickElement(25);
    Key(Qt::Key_Right);
    Key(Qt::Key_Space, Qt::ControlModifier);
    Key(Qt::Key_Down);
    Key(Qt::Key_Space, Qt::ControlModifier);
    Paint({25, 26, 36}, {255, 255, 255, 255});
    Record(6, 8);

    Choose("mnuInvertSelection");
    Paint(AllBut({25, 26, 36}), {0, 0, 0, 77});
    Record(1, 16);

    Choose("mnuSelectAll");
    Paint(AllLamps(), {0, 200, 30, 0});
    Record(2, 8);

    ClickElement(1); // the other fields show their colours
    ExpectOnWall(picture);
    Ticks(1);
    EXPECT_EQ(CardFrame(), FrameOf(picture));
    EXPECT_EQ(Show.StepCount, 10);
}

void Evening::Play() {
    Click(Transport(6));
    ExpectOnWall(scenes.front().Colours);
    Ticks(1);
    Click(Transport(2));
    EXPECT_EQ(SequencerStatus(), "Sequenz wird abgespielt.");
    EXPECT_EQ(Caption(), ": KMO DMX QUORVANE  ....running.  Interfacetype= 2");
    ExpectRound(0);
    Mix({1, 2, 3, 4}); // what is only mixed or selected disturbs nothing
    SelectByMouse({7, 8});
    ExpectRound(0);
    Click(Transport(3));
    EXPECT_EQ(SequencerStatus(), "Sequenzer gestoppt.");
    EXPECT_EQ(Caption(), ": KMO DMX QUORVANE  ....stopped");
    const Frame standing = CardFrame();
    Ticks(40);
    EXPECT_EQ(CardFrame(), standing);
}

void Evening::Step() {
    Click(Transport(4));
    EXPECT_EQ(SequencerStatus(), "Nächste Scene.");
    ExpectOnWall(scenes[1].Colours);
    Click(Transport(0));
    ExpectOnWall(scenes[0].Colours);
    Click(Transport(0));
    EXPECT_EQ(SequencerStatus(), "Auf Szene Nr 10 gesprungen.");
    ExpectOnWall(scenes[9].Colours);
    Confirm(0, 3);
    EXPECT_EQ(SequencerStatus(), "Auf Szene Nr 3 gesprungen.");
    ExpectOnWall(scenes[2].Colours);
    Ticks(1);
    EXPECT_EQ(CardFrame(), FrameOf(scenes[2].Colours));
}

void Evening::ChangeATime() {
    EXPECT_EQ(StepText(2)->text(), "1");
    Confirm(2, 9);
    scenes[2].Hold = 9;
    Click(Transport(1));
    EXPECT_EQ(SequencerStatus(), "Nur am Ende einer Sequenz möglich.");
    Click(Transport(6));
    Ticks(1);
    Click(Transport(2));
    ExpectRound(0);
    Click(Transport(5));
    EXPECT_EQ(SequencerStatus(), "Sie müssen die Sequenz erst anhalten!");
    Click(Transport(3));
}

void Evening::DeleteAndThinkAgain() {
    Answer(QMessageBox::Cancel);
    Click(Transport(5));
    ASSERT_EQ(Boxes.size(), 1u);
    EXPECT_EQ(Boxes[0].Title, "SAVE OPTIONS");
    EXPECT_EQ(Boxes[0].Text, "Sie haben eine neue Sequenz erstellt. Wollen Sie sie jetzt abspeichern?");
    EXPECT_EQ(CardFrame(), Frame(512));
    Ticks(1);
    EXPECT_EQ(CardFrame(), FrameOf(scenes[0].Colours));
    EXPECT_EQ(Show.StepCount, 10);

    Answer(QMessageBox::Cancel); // and goes home another time
    EXPECT_FALSE(CloseProgram());
    ASSERT_EQ(Boxes.size(), 2u);
    EXPECT_EQ(Boxes[1].Text, "Sie haben eine neue Wand erstellt. Wollen Sie sie jetzt abspeichern?");
    EXPECT_TRUE(main->isVisible());
}

void Evening::SaveEverything() {
    SaveAs("mnuConfigSpeichern", "abend");
    SaveAs("mnuFarbtblSpeichern", "abend");
    SaveAs("mnuSequenceSpeichern", "abend");
    SaveAs("mnuSceneSpeichern", "abend");
    for (const char* file :
         {"config/abend.CFG", "Farbtbl/abend.QCT", "scenen/abend.QSC", "sequencen/abend.QSQ"})
        EXPECT_TRUE(QFile::exists(Folder.filePath(file))) << file;
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
}

// With the sequence playing, and a time that was changed after the last save.
void Evening::LeaveWhilePlaying() {
    DragByTitle(main->Control, {-7, 5});
    Choose("mnuColorfenster"); // in front of what covers it
    DragByTitle(main->Color, {12, 9});
    Confirm(0, 1);
    Confirm(2, 7);
    scenes[0].Hold = 7;
    Click(Transport(2));
    Ticks(30);
    const std::size_t asked = Boxes.size();
    Answer(QMessageBox::Yes);
    EXPECT_TRUE(CloseProgram());
    ASSERT_EQ(Boxes.size(), asked + 1);
    EXPECT_EQ(Boxes.back().Text, "Sie haben die Sequence verändert. Wollen Sie die veränderten Werte in Ihre "
                                 "Datei speichern?\n" +
                                     Show.SequenceFile);
}

void Evening::FindThePlayingSequence() {
    EXPECT_EQ(main->Wand->windowTitle(), "Foyer & Garten");
    EXPECT_TRUE(Show.StatusFlags.Has(quorvane::Status::SequencePlaying));
    ExpectOnWall(scenes[0].Colours);
    EXPECT_EQ(CardFrame(), Frame(512));
    Ticks(1); // the card was off: it is dark until the first hold tick
    ExpectRound(1);
    ExpectRound(0);
}

void Evening::FindColoursAndSelections() {
    EXPECT_EQ(ShownUserColour(5), QColor(255, 80, 20)); // white lightens all three alike
    Click(Swatch(5));
    EXPECT_EQ(NameOfColour()->text(), "Glut");
    EXPECT_EQ(Current(), Ember);
    Key(Qt::Key_F2);
    EXPECT_EQ(Selected(), FirstColumn);
    Key(Qt::Key_F3);
    EXPECT_EQ(Selected(), TopRow);
    Key(Qt::Key_F11);
    EXPECT_EQ(Selected(), std::vector<int>{}) << "F11 and F12 are never saved, on purpose";
}

void Evening::FindTheTimes() {
    for (int step = 1; step <= 10; ++step) {
        const Scene& scene = scenes[static_cast<std::size_t>(step - 1)];
        Confirm(0, step);
        ExpectOnWall(scene.Colours);
        EXPECT_EQ(StepText(1)->text(), QString::number(scene.Blend));
        EXPECT_EQ(StepText(2)->text(), QString::number(scene.Hold));
    }
}

TEST_F(Evening, IsAllThereAgainTheNextDay) {
    for (const auto part :
         {&Evening::PrepareTheDesk, &Evening::PaintByMouse, &Evening::PaintWithRememberedSelections,
          &Evening::PaintByKeysAndMenus, &Evening::Play, &Evening::Step, &Evening::ChangeATime,
          &Evening::DeleteAndThinkAgain, &Evening::SaveEverything, &Evening::LeaveWhilePlaying}) {
        (this->*part)();
        if (HasFailure()) return; // what follows builds on it
    }
    const QRect main1 = main->geometry();
    const QRect colours = main->Color->parentWidget()->geometry();
    const QRect sequencer = main->Control->parentWidget()->geometry();
    const QRect wall = main->Wand->parentWidget()->geometry();
    const std::size_t asked = Boxes.size();

    NextDay();
    EXPECT_EQ(main->geometry(), main1);
    EXPECT_EQ(main->Color->parentWidget()->geometry(), colours);
    EXPECT_EQ(main->Control->parentWidget()->geometry(), sequencer);
    EXPECT_EQ(main->Wand->parentWidget()->size(), wall.size());
    EXPECT_EQ(main->Wand->parentWidget()->pos(), wall.topLeft().transposed())
        << "swapped at each start, on purpose";
    FindThePlayingSequence();
    FindColoursAndSelections();
    Click(Transport(3));
    FindTheTimes();
    EXPECT_TRUE(CloseProgram());

    NextDay();
    EXPECT_FALSE(Show.StatusFlags.Has(quorvane::Status::SequencePlaying));
    ExpectOnWall(scenes[0].Colours);
    Ticks(5);
    EXPECT_EQ(CardFrame(), FrameOf(scenes[0].Colours));
    EXPECT_EQ(Boxes.size(), asked) << "nothing was asked and nothing failed";
}

} // namespace quorvane
