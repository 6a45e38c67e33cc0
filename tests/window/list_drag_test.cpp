// Dragging list entries: which lists take part, the drop a dialog learns of, and the
// drags a user could not make.
#include "window_test_support.h"

using namespace tabra::test;

namespace {

struct Drop {
    int32_t target, source, item, position;
    bool operator==(const Drop &) const = default;
};

class ListDrag : public ScriptedTest {
protected:
    ListDrag() {
        module.add(DialogBuilder(110, u"Lists").listBox(1010).listView(1011).listBox(1012).button(1013, u"B").okCancel());
        procedure = [this](HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
            if (message == WM_COMMAND && LOWORD(wParam) == IDOK) EndDialog(dialog, IDOK);
            if (message == WM_INITDIALOG) {
                Ostrel_FillBox(GetDlgItem(dialog, 1010), u'\t', u"Orders\tStock");
                Ostrel_FillBox(GetDlgItem(dialog, 1012), u'\t', u"Plain");
                HWND view = GetDlgItem(dialog, 1011);
                Ostrel_ListView_CreateColumns(view, u"Name|100");
                Ostrel_ListView_InsertItem(view, -1, u"a", u'\t', 0);
                Ostrel_ListView_InsertItem(view, -1, u"b", u'\t', 0);
                EXPECT_EQ(Ostrel_SetListDragDrop(GetDlgItem(dialog, 1010), OSTREL_DRAG_SOURCE), 1);
                EXPECT_EQ(Ostrel_SetListDragDrop(view, OSTREL_DRAG_SOURCE | OSTREL_DROP_TARGET), 1);
                EXPECT_EQ(Ostrel_SetListDragDrop(GetDlgItem(dialog, 1013), OSTREL_DRAG_SOURCE), 0) << "no list";
            }
            if (message == WM_NOTIFY) {
                const auto *header = reinterpret_cast<const NMHDR *>(lParam);
                if (header->code != OSTREL_NM_DROPPED) return 0;
                const auto *drop = reinterpret_cast<const OstrelDropInfo *>(lParam);
                EXPECT_EQ(GetDlgItem(dialog, drop->sourceId), drop->source);
                EXPECT_EQ(GetFocus(), header->hwndFrom) << "the target takes the focus";
                drops.push_back({static_cast<int32_t>(header->idFrom), drop->sourceId, drop->item, drop->position});
                return TRUE;
            }
            return 0;
        };
    }
    TestModule module;
    Procedure procedure;
    std::vector<Drop> drops;
};

TEST_F(ListDrag, TheDialogLearnsWhereAnEntryWasDropped) {
    queue("dialog 110: drag 1010 \"Stock\" to 1011 \"a\"");
    queue("dialog 110: drag 1010 #0 to 1011");       // after the last item
    queue("dialog 110: drag 1011 #1 to 1011 #0");    // within the list
    queue("dialog 110: click 1");
    EXPECT_EQ(runScripted(module, 110, procedure), IDOK);
    EXPECT_EQ(drops, (std::vector<Drop>{{1011, 1010, 1, 0}, {1011, 1010, 0, 2}, {1011, 1011, 1, 0}}));
}

TEST_F(ListDrag, DragsAUserCouldNotMakeFailTheRun) {
    const struct {
        const char *line;
        const char *why;
    } cases[] = {
        {"dialog 110: drag 1012 #0 to 1011", "is no drag source"},
        {"dialog 110: drag 1011 #0 to 1010", "takes no drops"},
        {"dialog 110: drag 1010 #5 to 1011", "has no entry 5"},
        {"dialog 110: drag 1010 #0 to 1011 #7", "has no place 7"},
        {"dialog 110: drag 1010 #0 to 1099", "has no control 1099"},
    };
    for (const auto &c : cases) {
        TabraScript_Begin();
        queue(c.line);
        EXPECT_EQ(runDialog(module, 110, procedure), IDCANCEL) << c.line;
        EXPECT_TRUE(TabraScript_Failed()) << c.line;
        EXPECT_NE(report().find(c.why), std::string::npos) << report();
    }
    EXPECT_TRUE(drops.empty());
    for (const char *wrong : {"dialog 110: drag 1010 #0 1011", "dialog 110: drag 1010 to 1011", "dialog 110: drag 1010 #0 to"})
        EXPECT_EQ(TabraScript_QueueUtf8(wrong), 0) << wrong;
}

} // namespace
