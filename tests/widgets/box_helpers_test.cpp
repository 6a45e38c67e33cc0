// The in-house box helpers on list boxes and combo boxes alike: filling from separated
// lists (with item data, unique, sorted), adding, reading, finding, selecting, moving
// and deleting entries, with bounded buffers.
#include "window/window_test_support.h"

using namespace tabra::test;

namespace {

class BoxHelpers : public ScriptedTest {
protected:
    void SetUp() override {
        ScriptedTest::SetUp();
        module.add(DialogBuilder(800, u"Boxes")
                       .listBox(1, 0)
                       .listBox(2, LBS_MULTIPLESEL)
                       .comboBox(3, CBS_DROPDOWN)
                       .edit(4));
        dialog = createModeless(module, 800, plainProcedure());
        single = GetDlgItem(dialog, 1);
        multiple = GetDlgItem(dialog, 2);
        combo = GetDlgItem(dialog, 3);
    }
    void TearDown() override {
        DestroyWindow(dialog);
        ScriptedTest::TearDown();
    }
    std::u16string entry(HWND box, int32_t index) {
        char16_t text[64];
        return Ostrel_GetBoxEntry(box, index, text, 64) < 0 ? u"<none>" : std::u16string(text);
    }
    std::u16string read(HWND box, uint32_t mode, int32_t capacity = 64) {
        std::u16string text(static_cast<std::size_t>(capacity), u'\0');
        int32_t count = Ostrel_ReadBox(box, u',', mode, text.data(), capacity);
        text.resize(std::char_traits<char16_t>::length(text.c_str()));
        return text + u"#" + std::u16string(1, static_cast<char16_t>(u'0' + count));
    }
    TestModule module;
    HWND dialog = nullptr, single = nullptr, multiple = nullptr, combo = nullptr;
};

TEST_F(BoxHelpers, FillingReplacesEntriesAndSkipsEmptyOnes) {
    for (HWND box : {single, combo}) {
        EXPECT_EQ(Ostrel_FillBox(box, u'\t', u"a\t\tb\t"), 2) << "empty pieces are skipped";
        EXPECT_EQ(Ostrel_FillBox(box, u'\t', u"c\td\te"), 3);
        EXPECT_EQ(Ostrel_GetBoxCount(box), 3) << "filling replaces";
        EXPECT_EQ(Ostrel_FillBox(box, u'\t', nullptr), 0);
        EXPECT_EQ(Ostrel_GetBoxCount(box), 0);
    }
    EXPECT_EQ(Ostrel_FillBoxExtended(single, u'\t', u"ID\t4\tName\t12\tBorn\tx", OSTREL_FILL_WITH_DATA), 3);
    EXPECT_EQ(Ostrel_GetItemData(single, 1), 12);
    EXPECT_EQ(Ostrel_GetItemData(single, 2), 0) << "item data that is no number is 0";
    EXPECT_EQ(Ostrel_FillBoxExtended(single, u'\t', u"b\tA\tb\tc", OSTREL_FILL_UNIQUE | OSTREL_FILL_SORTED | OSTREL_FILL_APPEND), 3);
    std::u16string all = read(single, OSTREL_READ_TEXTS);
    EXPECT_EQ(all, u"ID,Name,Born,A,b,c#6");
    EXPECT_EQ(Ostrel_FillBox(dialog, u'\t', u"x"), -1) << "a dialog is no box";
    EXPECT_EQ(Ostrel_GetBoxCount(GetDlgItem(dialog, 4)), -1) << "nor is an edit";
    EXPECT_EQ(Ostrel_IsListBox(single), 1);
    EXPECT_EQ(Ostrel_IsListBox(combo), 0);
}

TEST_F(BoxHelpers, AddingAtPositionsAndKeepingTextsOnce) {
    EXPECT_EQ(Ostrel_AddBoxEntry(combo, u"b", 2, -1, 0), 0);
    EXPECT_EQ(Ostrel_AddBoxEntry(combo, u"a", 1, 0, 0), 0);
    EXPECT_EQ(Ostrel_AddBoxEntry(combo, u"b", 9, -1, OSTREL_ADD_UNIQUE), 1) << "the existing entry answers";
    EXPECT_EQ(Ostrel_AddBoxEntry(combo, u"B", 3, -1, OSTREL_ADD_UNIQUE), 2) << "unique is exact";
    EXPECT_EQ(Ostrel_AddBoxEntry(combo, u"c", 0, 4, 0), -1) << "beyond the end";
    EXPECT_EQ(Ostrel_AddBoxEntry(combo, nullptr, 0, -1, 0), -1);
    EXPECT_EQ(Ostrel_GetItemData(combo, 1), 2);
    EXPECT_EQ(Ostrel_FindBoxEntry(combo, u"B", 0, 0), 2);
    EXPECT_EQ(Ostrel_FindBoxEntry(combo, u"B", 0, OSTREL_FIND_IGNORE_CASE), 1);
    EXPECT_EQ(Ostrel_FindBoxEntry(combo, u"B", 3, 0), -1) << "no wrapping";
    Ostrel_FillBox(single, u',', u"Orders,Order Details,Stock");
    EXPECT_EQ(Ostrel_FindBoxEntry(single, u"order", 0, OSTREL_FIND_IGNORE_CASE | OSTREL_FIND_PREFIX), 0);
    EXPECT_EQ(Ostrel_FindBoxEntry(single, u"order", 1, OSTREL_FIND_IGNORE_CASE | OSTREL_FIND_PREFIX), 1);
}

TEST_F(BoxHelpers, TheSelectedEntryAndBoundedReads) {
    Ostrel_FillBox(single, u',', u"alpha,beta,gamma");
    EXPECT_EQ(Ostrel_GetBoxIndex(single), -1);
    EXPECT_EQ(entry(single, -1), u"<none>");
    EXPECT_EQ(Ostrel_SetBoxIndex(single, 1), 1);
    EXPECT_EQ(entry(single, -1), u"beta");
    EXPECT_EQ(Ostrel_SetBoxIndex(single, 3), -1);
    EXPECT_EQ(Ostrel_GetBoxIndex(single), 1) << "a bad index changes nothing";
    char16_t small[3] = {u'x', u'x', u'x'};
    EXPECT_EQ(Ostrel_GetBoxEntry(single, 2, small, 3), 2);
    EXPECT_EQ(std::u16string(small), u"ga");
    EXPECT_EQ(Ostrel_GetBoxEntry(single, 2, small, 0), -1);
    EXPECT_EQ(Ostrel_GetBoxEntry(single, 7, small, 3), -1);
    EXPECT_EQ(small[0], 0) << "a missing entry empties the buffer";
    EXPECT_EQ(read(single, OSTREL_READ_SELECTED | OSTREL_READ_TEXTS), u"beta#1");
    EXPECT_EQ(read(single, OSTREL_READ_TEXTS, 12), u"alpha,beta#2") << "only whole entries";
    EXPECT_EQ(read(single, OSTREL_READ_TEXTS, 5), u"#0");
    EXPECT_EQ(Ostrel_ReadBox(single, u',', 1, nullptr, 5), -1);

    Ostrel_FillBoxExtended(combo, u',', u"x,7,y,8", OSTREL_FILL_WITH_DATA);
    Ostrel_SetBoxIndex(combo, 1);
    EXPECT_EQ(windowText(combo), u"y");
    EXPECT_EQ(read(combo, OSTREL_READ_SELECTED | OSTREL_READ_ITEM_DATA), u"8#1");
    EXPECT_EQ(Ostrel_GetItemData(combo, -1), 8);
    EXPECT_EQ(Ostrel_SetBoxIndex(combo, -1), -1);
    EXPECT_EQ(Ostrel_GetItemData(combo, -1), LB_ERR);
}

TEST_F(BoxHelpers, SelectingEntriesByTextInMultipleSelectionLists) {
    Ostrel_FillBox(multiple, u',', u"a,b,c,d");
    EXPECT_EQ(Ostrel_SelectBoxEntries(multiple, u',', u"d,b,zz,b", 0), 2);
    EXPECT_EQ(read(multiple, OSTREL_READ_SELECTED), u"b,d#2");
    EXPECT_EQ(Ostrel_SelectBoxEntries(multiple, u',', u"a", 1), 1) << "bit 1 keeps the others";
    EXPECT_EQ(read(multiple, OSTREL_READ_SELECTED), u"a,b,d#3");
    EXPECT_EQ(Ostrel_GetBoxIndex(multiple), 0) << "the first selected";
    EXPECT_EQ(entry(multiple, -1), u"a");
    EXPECT_EQ(Ostrel_SetBoxIndex(multiple, 2), 2);
    EXPECT_EQ(read(multiple, OSTREL_READ_SELECTED), u"c#1") << "setting the index selects it alone";

    Ostrel_FillBox(single, u',', u"a,b,c");
    EXPECT_EQ(Ostrel_SelectBoxEntries(single, u',', u"c,b", 0), 1) << "a single selection takes the first found";
    EXPECT_EQ(entry(single, -1), u"c");
}

TEST_F(BoxHelpers, MovingKeepsDataAndSelection) {
    Ostrel_FillBoxExtended(multiple, u',', u"a,1,b,2,c,3,d,4", OSTREL_FILL_WITH_DATA);
    Ostrel_SelectBoxEntries(multiple, u',', u"a,c", 0);
    EXPECT_EQ(Ostrel_MoveBoxEntry(multiple, 0, 2), 2);
    EXPECT_EQ(read(multiple, OSTREL_READ_TEXTS), u"b,c,a,d#4");
    EXPECT_EQ(read(multiple, OSTREL_READ_SELECTED), u"c,a#2") << "both selections followed their entries";
    EXPECT_EQ(read(multiple, OSTREL_READ_ITEM_DATA), u"2,3,1,4#4");
    EXPECT_EQ(Ostrel_MoveBoxEntry(multiple, 3, 5), 3) << "clamped at the end";
    EXPECT_EQ(Ostrel_MoveBoxEntry(multiple, 9, 1), -1);

    Ostrel_FillBox(single, u',', u"x,y,z");
    Ostrel_SetBoxIndex(single, 2);
    EXPECT_EQ(Ostrel_MoveBoxEntry(single, -1, -1), 1) << "the selected entry moves up";
    EXPECT_EQ(read(single, OSTREL_READ_TEXTS), u"x,z,y#3");
    EXPECT_EQ(Ostrel_GetBoxIndex(single), 1);
    EXPECT_EQ(Ostrel_DeleteBoxEntry(single, -1), 2) << "answers the entries left";
    EXPECT_EQ(Ostrel_DeleteBoxEntry(single, -1), -1) << "nothing is selected any more";
    EXPECT_EQ(Ostrel_DeleteBoxEntry(single, 5), -1);
    EXPECT_EQ(Ostrel_ResetBox(single), 1);
    EXPECT_EQ(Ostrel_GetBoxCount(single), 0);
}

} // namespace
