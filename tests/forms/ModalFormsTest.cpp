#include "FormTest.h"
#include "support/Endpoints.h"
#include "ui/ModalWindows.h"

namespace kaz {
namespace {

class ModalFormsTest : public FormTest {};

TEST_F(ModalFormsTest, CategoriesAreRenamedAllAtOnceOrNotAtAll) {
    app.layers.Layer(1, " Home  ");
    InModal(IDD_LAYERS, [&] {
        EXPECT_EQ(Text(IDC_txtLayer), "Shared");
        EXPECT_EQ(Text(IDC_txtLayer + 1), "Home");
        EXPECT_EQ(Text(IDC_txtLayer + 20), "All Categories");
        Type(IDC_txtLayer + 2, " Work");
        Type(IDC_txtLayer + 3, "");
        Type(IDC_txtLayer + 9, "home ");
        machine.dialogs.yesNo = {false, true};
        Click(IDC_cmdAccept);
        EXPECT_TRUE(window->IsVisible());
        Click(IDC_cmdAccept);
    });
    EXPECT_TRUE(ShowCategories(app));
    ASSERT_EQ(machine.dialogs.questions.size(), 2U);
    EXPECT_THAT(machine.dialogs.questions[1],
                AllOf(HasSubstr("Category 3 has no name."), HasSubstr("two categories \"home\"")));
    EXPECT_EQ(app.layers.Layer(1), "Home");
    EXPECT_THAT(Saved("C:\\KAZ\\Kaz.ini"), HasSubstr("LAYER2, Work\r\nLAYER3,\r\n"));
    EXPECT_THAT(Saved("C:\\KAZ\\Kaz.ini"), HasSubstr("LAYER20,All Categories\r\n"));

    InModal(IDD_LAYERS, [&] {
        Click(IDC_cmdSuggest);  // two slots are taken, and two of the names
        EXPECT_EQ(Text(IDC_txtLayer + 3) + Text(IDC_txtLayer + 4) + Text(IDC_txtLayer + 5),
                  "BirthdaysBillsLayer 5");
        Type(IDC_txtLayer + 1, "Garden");
        Type(IDC_txtLayer + 2, "<Desc>");
        Click(IDC_cmdAccept);
        EXPECT_THAT(Told(), ElementsAre(HasSubstr("must not contain")));
        EXPECT_TRUE(window->IsVisible());
        stage->CloseBox(*window);
    });
    EXPECT_FALSE(ShowCategories(app));
    EXPECT_EQ(app.layers.Layer(1), "Home");
}

TEST_F(ModalFormsTest, TheEndOfTheProgramClosesAnOpenDialog) {
    InModal(IDD_ABOUT, [&] {
        EXPECT_THAT(Text(IDC_lblVersion), StartsWith("Version "));
        Click(IDC_cmdAboutHomePage);
        app.EndProgram();
    });
    ShowAbout(app);
    EXPECT_THAT(machine.shell.opened, ElementsAre(std::string(kHomePage)));
    EXPECT_EQ(app.openWindows.Count(), 0U);
}

TEST_F(ModalFormsTest, AFailureIsReportedOnceUntilItIsClosedAndThenRests) {
    app.errors.ShowErr("Error 6 - Overflow in A of B", "More");
    ASSERT_TRUE(TurnTo(IDD_ERRORREPORT));
    EXPECT_TRUE(window->IsVisible());
    EXPECT_EQ(Text(IDC_txtError), "Error 6 - Overflow in A of B\r\nMore");
    EXPECT_THAT(Text(IDC_txtLog), HasSubstr("Overflow in A of B"));
    app.errors.ShowErr("Another one");
    EXPECT_EQ(app.openWindows.Count(), 1U);

    Type(IDC_txtUserMessage, "100%");
    Click(IDC_cmdSubmit);
    ASSERT_EQ(machine.shell.opened.size(), 1U);
    EXPECT_THAT(machine.shell.opened[0], StartsWith("mailto:kaz-bugs-2023@example.org?subject=Bug%20Report"));
    EXPECT_THAT(machine.shell.opened[0], HasSubstr("User:%20100%25%0D%0A"));

    machine.shell.refusal = ErrorNumber::FileNotFound;
    Click(IDC_cmdSubmit);
    EXPECT_THAT(Saved("C:\\KAZ\\FullLog.txt"), HasSubstr("100%\r\n1 09:00:00, "));
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("Your mail program could not be opened"),
                                    HasSubstr("saved as C:\\KAZ\\FullLog.txt, but")));

    Click(IDC_cmdCloseReport);
    app.openWindows.UnloadAll();
    app.errors.ShowErr("Error 6 - Overflow in A of B", "More");
    EXPECT_EQ(stage->Find(IDD_ERRORREPORT), nullptr);
    machine.clock.AdvanceMinutes(61);
    machine.files.Remove("C:\\KAZ\\Log_KAZ.txt");
    app.log.NOLOGGING(true);
    app.errors.ShowErr("Error 6 - Overflow in A of B", "More");
    ASSERT_TRUE(TurnTo(IDD_ERRORREPORT));
    EXPECT_EQ(Text(IDC_txtLog), "No log file");
    app.EndProgram();
    app.errors.ShowErr("Too late");
    EXPECT_EQ(stage->Find(IDD_ERRORREPORT), nullptr);
}

}  // namespace
}  // namespace kaz
