#include "FormTest.h"
#include "ui/main/frmMain.h"

namespace kaz {
namespace {

class WordsLineTest : public FormTest {};

TEST_F(WordsLineTest, ShowsWhatItUnderstandsAndAddsItByEnter) {
    app.layers.Layer(2, "Home");
    OpenMainAndTick();
    main->ShowWindow();
    EXPECT_THAT(Text(IDC_lblUnderstood), HasSubstr("Such as:  dentist tomorrow"));
    Click(IDM_WORDS);
    EXPECT_EQ(IDC_txtWords, stage->Focus(*window));
    Type(IDC_txtWords, "dentist & co");
    EXPECT_THAT(Text(IDC_lblUnderstood), StartsWith("Say when"));
    stage->PressEnter(*window, IDC_txtWords);
    EXPECT_EQ("dentist & co", Text(IDC_txtWords));
    EXPECT_EQ("", Column());

    Type(IDC_txtWords, "dentist & co friday 15:30 !30 #home");
    EXPECT_EQ("dentist & co:  Fri Mar 17 2023, 15:30 (rings at 15:00), Home\r\nOnce.",
              Text(IDC_lblUnderstood));
    stage->PressEnter(*window, IDC_txtWords);
    EXPECT_EQ("dentist & co", Column());
    EXPECT_EQ("dentist & co", Selected());
    EXPECT_EQ("", Text(IDC_txtWords));
    EXPECT_THAT(Text(IDC_lblUnderstood), StartsWith("Added:  dentist & co:  Fri Mar 17 2023"));
    EXPECT_EQ("Smith", app.events->AllEvents().front().Owner());
    EXPECT_THAT(raised, ElementsAre("Rescan"));
    Click(IDM_UNDO);
    EXPECT_EQ("", Column());

    Type(IDC_txtWords, "half a line");
    for (const int focus : {IDC_txtWords, IDC_ListEvents}) {
        stage->PressEscape(*window, IDC_txtWords);
        EXPECT_EQ("", Text(IDC_txtWords));
        EXPECT_EQ(focus, stage->Focus(*window));
    }
    EXPECT_TRUE(main->IsShown());
}

TEST_F(WordsLineTest, HasAWindowOfItsOwnThatKeepsWhatWasTyped) {
    OpenMainAndTick();
    Click(IDM_NEWINWORDS);
    ASSERT_TRUE(TurnTo(IDD_WORDS));
    Type(IDC_txtWords, "bins on");
    Click(IDC_cmdAddWords);
    EXPECT_THAT(Text(IDC_lblUnderstood), StartsWith("Say when"));
    stage->CloseBox(*window);
    EXPECT_FALSE(window->IsVisible());
    stage->Click(*stage->Find(IDD_MAIN), IDM_NEWINWORDS);
    EXPECT_TRUE(window->IsVisible());
    EXPECT_EQ("bins on", Text(IDC_txtWords));
    Type(IDC_txtWords, "bins every 2 weeks on thursday");
    EXPECT_THAT(Text(IDC_lblUnderstood), EndsWith("Thu Mar 16 2023,  Thu Mar 30 2023,  Thu Apr 13 2023 ..."));
    Click(IDC_cmdAddWords);
    EXPECT_FALSE(window->IsVisible());
    ASSERT_TRUE(TurnTo(IDD_MAIN));
    EXPECT_EQ("bins", Column());

    EXPECT_FALSE(main->AddInWords("bins").added);
    EXPECT_TRUE(main->AddInWords("tea in 10 minutes").added);
    EXPECT_EQ("tea|bins", Column());
}

TEST_F(WordsLineTest, OpensByAKeyOfTheWholeComputerOnceItIsChosen) {
    if (!fakes) GTEST_SKIP() << "the key is the computer's";
    OpenMainAndTick();
    EXPECT_EQ("", Fake().hotKey);
    Fake().takenHotKey = "Ctrl+Alt+N";
    const auto choose = [this](int position) {
        InModal(IDD_OPTIONS, [this, position] {
            Click(IDC_chkNoSound);
            Choose(IDC_cmbWordsKey, position);
            Click(IDC_cmdSaveOptions);
        });
        Click(IDM_SETTINGS);
    };
    choose(2);
    EXPECT_EQ("", Fake().hotKey);
    EXPECT_THAT(Text(IDC_lblHealth), HasSubstr("another program has this key"));
    choose(1);
    EXPECT_EQ("Ctrl+Alt+K", Fake().hotKey);
    EXPECT_TRUE(app.health.Notices().empty());
    Fake().Raise(0, Raised::HotKey);
    EXPECT_TRUE(stage->Find(IDD_WORDS)->IsVisible());
    choose(0);
    EXPECT_EQ("", Fake().hotKey);
}

}  // namespace
}  // namespace kaz
