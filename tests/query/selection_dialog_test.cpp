// The selection dialog played by the scripted driver: filling rows, OK and Cancel,
// saving a selection mask and loading it again; the mask files' bytes.
#include "query/mask_file.h"
#include "query/resource_ids.h"
#include "rowset/row_set_test_support.h"
#include "support/scoped_environment.h"
#include "tabra.h"

namespace {

using namespace tabra::test;
namespace ids = tabra::query::ids;
using ids::kSelectionDialog;

constexpr ConditionRow kRows[] = TABRA_SELECTION_DIALOG_ROWS;

constexpr char16_t kColumns[] = u"Name\t12\tid\t4\tBorn On\t9";

class SelectionDialogTest : public ::testing::Test {
protected:
    std::string path(const std::string &name) const { return (directory_.path() / name).string(); }
    ScopedRegistryRoot registry_; // the file dialog remembers the last mask file
    TemporaryDirectory directory_;
    ScriptedRun run_;
};

TEST_F(SelectionDialogTest, RowsFilledByTheUserBecomeTheDescriptor) {
    run_.queue(onDialog(kSelectionDialog.id, "select", kRows[0].column, "\"Name\""));
    run_.queue(onDialog(kSelectionDialog.id, "select", kRows[0].operation, "\"begins with\""));
    run_.queue(onDialog(kSelectionDialog.id, "set", kRows[0].value, "\"Mü'\""));
    run_.queue(onDialog(kSelectionDialog.id, "set", kRows[1].column, "\"Other\"")); // not a column of the list: type 0
    run_.queue(onDialog(kSelectionDialog.id, "select", kRows[1].operation, "\"is empty\""));
    run_.queue(onDialog(kSelectionDialog.id, "select", kRows[8].column, "\"id\""));
    run_.queue(onDialog(kSelectionDialog.id, "select", kRows[8].operation, "\"is greater than\""));
    run_.queue(onDialog(kSelectionDialog.id, "type", kRows[8].value, "\"3\""));
    run_.queue(click(kSelectionDialog.id, IDHELP));
    run_.queue(click(kSelectionDialog.id, IDOK));
    char16_t selection[200] = u"Name\tXX\t1\t12\n";
    EXPECT_EQ(Tabra_Edit_SelDesc(selection, 200, kColumns, 0, 0), 1);
    EXPECT_FALSE(run_.failed());
    EXPECT_EQ(std::u16string(selection), u"Name\tBW\tMü'\t12\nOther\tIN\t\t0\n\v\vid\tGT\t3\t4\n\v\v");
    auto help = run_.records(TABRA_RECORD_HELP);
    ASSERT_EQ(help.size(), 1u);
    EXPECT_EQ(help[0].id, kSelectionDialog.id) << "the help topic is the template";
}

struct FocusSeen {
    int32_t control = 0;
};

TEST_F(SelectionDialogTest, CancelKeepsTheBufferAndTheFocusGoesToTheFirstEmptyRow) {
    FocusSeen focus;
    run_.queueCallback(kSelectionDialog.id, [](HWND, void *seen) { static_cast<FocusSeen *>(seen)->control = GetDlgCtrlID(GetFocus()); },
                       &focus);
    run_.queue(onDialog(kSelectionDialog.id, "expect", kRows[0].value, "\"1\""));
    run_.queue(onDialog(kSelectionDialog.id, "expect", kRows[1].operation, "\"is not empty\""));
    run_.queue(onDialog(kSelectionDialog.id, "set", kRows[0].value, "\"2\""));
    run_.queue(click(kSelectionDialog.id, IDCANCEL));
    char16_t selection[40];
    std::u16string(40, u'#').copy(selection, 40);
    std::u16string(u"id\tEQ\t1\t4\nName\tNN\t\t12\n").copy(selection, 22);
    selection[22] = u'\0';
    std::u16string before(selection, 40);
    EXPECT_EQ(Tabra_Edit_SelDesc(selection, 40, kColumns, 0, 0), 2);
    EXPECT_FALSE(run_.failed());
    EXPECT_EQ(std::u16string(selection, 40), before);
    EXPECT_EQ(focus.control, kRows[2].column);

    EXPECT_EQ(Tabra_Edit_SelDesc(selection, 9, kColumns, 0, 0), 2); // too small: no dialog
    EXPECT_EQ(Tabra_Edit_SelDesc(nullptr, 100, kColumns, 0, 0), 2);
    EXPECT_EQ(run_.records(TABRA_RECORD_DIALOG_OPENED).size(), 1u);
}

TEST_F(SelectionDialogTest, MaskSavedAndLoadedIntoEmptyRows) {
    std::string mask = path("mask.sms");
    // Nothing to save in empty rows: no file dialog.
    run_.queue(click(kSelectionDialog.id, kSelectionDialog.saveMask));
    run_.queue(onDialog(kSelectionDialog.id, "select", kRows[0].column, "\"Born On\""));
    run_.queue(onDialog(kSelectionDialog.id, "select", kRows[0].operation, "\"is one of (a;b;...)\""));
    run_.queue(onDialog(kSelectionDialog.id, "set", kRows[0].value, "\"1.2.2020;3.4.2021\""));
    run_.queue(onDialog(kSelectionDialog.id, "select", kRows[10].column, "\"Name\""));
    run_.queue(onDialog(kSelectionDialog.id, "select", kRows[10].operation, "\"is equal to column\""));
    run_.queue(onDialog(kSelectionDialog.id, "select", kRows[10].value, "\"Born On\""));
    run_.queue(click(kSelectionDialog.id, kSelectionDialog.saveMask));
    run_.queue("file: choose \"" + mask + "\"");
    run_.queue(click(kSelectionDialog.id, IDCANCEL));
    char16_t selection[300] = u"";
    EXPECT_EQ(Tabra_Edit_SelDesc(selection, 300, kColumns, 0, 0), 2);
    EXPECT_FALSE(run_.failed());
    EXPECT_EQ(run_.records(TABRA_RECORD_FILE_DIALOG).size(), 1u);
    const std::u16string descriptor = u"Born On\tIL\t1.2.2020;3.4.2021\t9\n\v\v\vName\tEQF\tBorn On\t12\n\v";
    EXPECT_EQ(readWholeFile(mask), utf16le(u"OSTREL-SMS" + descriptor));

    // The last name is proposed; the mask fills rows that were empty.
    run_.queue(click(kSelectionDialog.id, kSelectionDialog.loadMask));
    run_.queue("file: choose \"" + mask + "\"");
    run_.queue(onDialog(kSelectionDialog.id, "expect", kRows[0].value, "\"1.2.2020;3.4.2021\""));
    run_.queue(click(kSelectionDialog.id, IDOK));
    EXPECT_EQ(Tabra_Edit_SelDesc(selection, 300, kColumns, 0, 0), 1);
    EXPECT_FALSE(run_.failed());
    EXPECT_EQ(std::u16string(selection), descriptor);
    auto dialogs = run_.records(TABRA_RECORD_FILE_DIALOG);
    ASSERT_EQ(dialogs.size(), 2u);
    EXPECT_EQ(toUtf8(dialogs[1].text), mask);
}

TEST_F(SelectionDialogTest, FilesThatAreNoMasksAreRefused) {
    std::string text = directory_.write("plain.txt", utf16le(u"OSTREL-SM")).string();
    std::string other = directory_.write("other.sms", utf16le(u"OSTREL-XXXa\tEQ\t1\t4\n")).string();
    std::string endMark = directory_.write("z.sms", std::string(1, '\x1A')).string();
    for (const std::string &file : {text, other, endMark}) {
        run_.queue(click(kSelectionDialog.id, kSelectionDialog.loadMask));
        run_.queue("file: choose \"" + file + "\"");
        run_.queue(answer(ids::kMessage.notAMask, "ok"));
    }
    run_.queue(onDialog(kSelectionDialog.id, "expect", kRows[0].column, "\"id\""));
    run_.queue(click(kSelectionDialog.id, IDOK));
    char16_t selection[100] = u"id\tEQ\t5\t4\n";
    EXPECT_EQ(Tabra_Edit_SelDesc(selection, 100, kColumns, 0, 0), 1);
    EXPECT_FALSE(run_.failed());
    EXPECT_EQ(run_.records(TABRA_RECORD_MESSAGE, ids::kMessage.notAMask).size(), 3u);
}

TEST(SelectionMaskFile, BytesAndEndMark) {
    TemporaryDirectory directory;
    ScriptedRun run;
    std::u16string forty = u"OSTREL-SMS" + std::u16string(30, u'ä');
    std::u16string file = toUtf16((directory.path() / "forty.sms").string());
    EXPECT_EQ(tabra::query::writeMaskFile(file, forty), 0);
    EXPECT_EQ(readWholeFile(directory.path() / "forty.sms"), utf16le(forty)); // 80 bytes
    EXPECT_EQ(tabra::query::readMaskFile(file), forty);

    struct Case {
        std::string bytes;
        std::u16string text;
    } cases[] = {
        {"\x1A", u""},                               // character n - 1 = 0 is the mark
        {std::string("a\0b\0\x1A\0", 6), u"ab\x1A"}, // character 5 is in the zeroed half
        {std::string("a\0b", 3), u"ab"},             // an odd last byte is a character
        {"", u""},
    };
    for (const Case &c : cases) {
        std::u16string name = toUtf16(directory.write("case.sms", c.bytes).string());
        EXPECT_EQ(tabra::query::readMaskFile(name), c.text) << c.bytes.size();
    }
    EXPECT_EQ(tabra::query::readMaskFile(toUtf16(directory.path().string())), std::nullopt);
    EXPECT_EQ(tabra::query::readMaskFile(toUtf16((directory.path() / "none").string())), std::nullopt);

    // A folder that is not there, and a device that is full (it stays where it is).
    run.queue("message: answer ok");
    run.queue(answer(ids::kMessage.maskNotWritten, "ok"));
    EXPECT_EQ(tabra::query::writeMaskFile(toUtf16((directory.path() / "no" / "x.sms").string()), forty), -1);
    EXPECT_EQ(tabra::query::writeMaskFile(u"/dev/full", forty), -1);
    expectPlayed(run);
}

} // namespace
