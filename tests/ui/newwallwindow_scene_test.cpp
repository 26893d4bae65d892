// What becomes of the scene and of the output when the new wall dialog replaces the wall.
#include "ui/newwallbench.h"

#include "ui/frmWand.h"

namespace quorvane {

class NewWallScene : public NewWallBench {
protected:
    // The red of each element is its number, also beyond the wall.
    void HaveSceneOnWall(int columns, int rows) {
        HaveWall(columns, rows);
        for (int element = 1; element <= 6; ++element)
            Show.ElementValue[element].Fill(static_cast<std::uint8_t>(element));
    }
    static std::vector<int> Reds(int elements) {
        std::vector<int> reds;
        for (int element = 1; element <= elements; ++element) reds.push_back(Show.ElementValue[element][1]);
        return reds;
    }
};

TEST_F(NewWallScene, KeepsItsColumnsAndRowsOnTheNewWallWhileASequenceExists) {
    StartProgram();
    HaveSceneOnWall(2, 2);
    Show.StepCount = 1;
    Show.SequenceSteps[1][1].Fill(99);
    Show.StatusFlags.Set(Status::SequenceExists);
    InDialog([this] {
        Type(1, "3");
        Ok();
    });
    EXPECT_EQ(Reds(6), (std::vector<int>{1, 2, 0, 3, 4, 0}));
    EXPECT_EQ(Show.SequenceSteps[1][1][1], 99);
    EXPECT_EQ(Show.StepCount, 1);
}

TEST_F(NewWallScene, StaysElementByElementWithoutASequenceOrOnTheSameShape) {
    for (const bool sequence : {false, true}) {
        StartProgram();
        HaveSceneOnWall(2, 2);
        Show.StatusFlags.Put(Status::SequenceExists, sequence);
        InDialog([this, sequence] {
            if (!sequence) Type(1, "3");
            Ok();
        });
        EXPECT_EQ(Show.ElementValue[3][1], 3);
        EXPECT_EQ(Show.ElementValue[4][1], 4);
        Show.StatusFlags.Clear(Status::SequenceExists);
        Show.ChangeFlags = {};
        main.reset();
        Show = ShowState{};
    }
}

TEST_F(NewWallScene, KeepsItsRowsWhenOnlyTheirNumberChanges) {
    StartProgram();
    HaveSceneOnWall(2, 2);
    Show.StatusFlags.Set(Status::SequenceExists);
    InDialog([this] {
        Type(2, "3");
        Ok();
    });
    EXPECT_EQ(Reds(6), (std::vector<int>{1, 2, 3, 4, 0, 0})); // 5 and 6 stood beyond the old wall
}

TEST_F(NewWallScene, StaysElementByElementWhenTheOldWallHasGone) {
    StartProgram();
    HaveSceneOnWall(2, 2);
    Show.StatusFlags.Set(Status::SequenceExists);
    Answer(QMessageBox::Yes);
    Choose("mnuKillWand");
    InDialog([this] {
        Type(1, "3");
        Type(2, "2");
        Ok();
    });
    EXPECT_EQ(Reds(6), (std::vector<int>{1, 2, 3, 4, 5, 6}));
}

TEST_F(NewWallScene, WallWithoutElementsFromADamagedFileIsReplacedLikeNoWall) {
    StartProgram();
    HaveSceneOnWall(0, 5);
    Show.StatusFlags.Set(Status::SequenceExists);
    InDialog([this] {
        EXPECT_EQ(Shown(1), "0");
        Type(1, "3");
        Type(2, "2");
        Ok();
        EXPECT_FALSE(dialog->isVisible());
    });
    EXPECT_EQ(Show.ElementCount, 6);
    EXPECT_EQ(Reds(6), (std::vector<int>{1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(main->Wand->isVisible());
    EXPECT_EQ(Read("QUORVANE.ini").substr(0, 25), "ini-Datei von QUORVANE 98");
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(NewWallScene, NothingIsAskedAboutUnsavedWork) {
    StartProgram();
    HaveWall(2, 2);
    Show.ChangeFlags.bits = 0xff;
    InDialog([this] { Ok(); });
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(NewWallScene, OutputRestsWhileTheDialogIsOpenAndGoesOnAsItWas) {
    StartProgram();
    HaveWall(2, 2);
    for (const bool running : {true, false})
        for (const bool ok : {true, false}) {
            Show.AutoXmit.Enabled = running;
            Show.StatusFlags.Set(Status::SequencePlaying);
            InDialog([this, ok] {
                EXPECT_FALSE(Show.AutoXmit.Enabled);
                if (ok) {
                    Type(1, Show.WallColumns == 2 ? "3" : "2");
                    Ok();
                } else
                    Leave();
            });
            EXPECT_EQ(Show.AutoXmit.Enabled, running);
            EXPECT_TRUE(Show.StatusFlags.Has(Status::SequencePlaying));
        }
    EXPECT_EQ(Show.WallColumns, 2); // replaced twice
}

} // namespace quorvane
