// A bounded fuzz run (fixed seed and iteration count) over the descriptor and clause
// functions with small capacities: outputs stay terminated within their capacity and
// nothing reads or writes out of bounds (the sanitizer build checks the latter).
#include "core/module/module_state.h"
#include "query/resource_ids.h"
#include "tabra.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

std::u16string randomText(std::mt19937 &random, size_t maxLength) {
    static const std::u16string alphabet = u"\t\n\v;,.()'\" _0aAbSELCTFROMWHEREORDBYINLQü-+5%*";
    static const std::u16string words[] = {u"SELECT ", u"FROM ", u"WHERE ", u"ORDER BY ", u"\tEQ\t", u"\tIL\t",
                                           u"\tBW\t", u"\tSCO\t", u"\tSNU\t", u"\t4\n", u"\t9\n", u"\v"};
    std::u16string text;
    size_t length = random() % (maxLength + 1);
    while (text.size() < length) {
        if (random() % 3 == 0)
            text += words[random() % std::size(words)];
        else
            text += alphabet[random() % alphabet.size()];
    }
    return text;
}

bool terminatedWithin(const std::u16string &buffer, int32_t capacity) {
    return std::u16string_view(buffer.data(), static_cast<size_t>(capacity)).find(u'\0') != std::u16string_view::npos;
}

TEST(QueryFuzz, DescriptorAndClauseFunctionsStayInBounds) {
    std::mt19937 random(20261121);
    for (int iteration = 0; iteration < 3000; ++iteration) {
        std::u16string input = randomText(random, 120);
        int32_t capacity = 1 + static_cast<int32_t>(random() % 24);
        std::u16string out(static_cast<size_t>(capacity), u'#');
        Tabra_SelDesc_To_WhereClause(nullptr, input.c_str(), out.data(), capacity);
        ASSERT_TRUE(terminatedWithin(out, capacity));
        Tabra_OpDesc_To_SetClause(nullptr, input.c_str(), out.data(), capacity);
        ASSERT_TRUE(terminatedWithin(out, capacity));
        Tabra_Select_Get_Clause(input.c_str(), u"WHERE", nullptr, out.data(), capacity);
        ASSERT_TRUE(terminatedWithin(out, capacity));
        Tabra_Select_Scan_FieldsClause(input.c_str(), nullptr, 0, out.data(), capacity);
        ASSERT_TRUE(terminatedWithin(out, capacity));
        Tabra_Select_Scan_OrderByClause(input.c_str(), nullptr, 0, out.data(), capacity);
        ASSERT_TRUE(terminatedWithin(out, capacity));

        std::u16string statement(static_cast<size_t>(capacity), u'\0');
        statement.replace(0, std::min<size_t>(input.size(), static_cast<size_t>(capacity - 1)),
                          input.substr(0, static_cast<size_t>(capacity - 1)));
        std::u16string replacement = randomText(random, 10);
        switch (iteration % 4) {
        case 0: Tabra_Select_Replace_FieldsClause(statement.data(), capacity, replacement.c_str(), 0); break;
        case 1: Tabra_Select_Replace_TablesClause(statement.data(), capacity, replacement.c_str()); break;
        case 2: Tabra_Select_Replace_WhereClause(statement.data(), capacity, replacement.c_str()); break;
        default: Tabra_Select_Replace_OrderByClause(statement.data(), capacity, replacement.c_str(), 0); break;
        }
        ASSERT_TRUE(terminatedWithin(statement, capacity));
    }
}

// Random descriptors through the rows of the selection dialog and back with small
// capacities.
TEST(QueryFuzz, DialogRowTransferStaysInBounds) {
    static const ConditionRow rows[] = TABRA_SELECTION_DIALOG_ROWS;
    HWND dialog = CreateDialogParamW(tabra::module::resourceLibrary(), tabra::query::ids::kSelectionDialog.id, nullptr,
                                     [](HWND, uint32_t, WPARAM, LPARAM) -> INT_PTR { return 0; }, 0);
    ASSERT_NE(dialog, nullptr);
    std::mt19937 random(20261123);
    for (int iteration = 0; iteration < 500; ++iteration) {
        std::u16string input = randomText(random, 160);
        int32_t kind = 1 + static_cast<int32_t>(iteration % 2);
        Tabra_OpDesc_To_DialogItems(kind, input.c_str(), iteration % 3 ? u"a\t4\tb\t12" : nullptr, dialog, rows);
        int32_t capacity = 1 + static_cast<int32_t>(random() % 40);
        std::u16string out(static_cast<size_t>(capacity), u'#');
        Tabra_DialogItems_To_OpDesc(kind, dialog, rows, out.data(), capacity);
        ASSERT_TRUE(terminatedWithin(out, capacity));
    }
    Tabra_OpDesc_Clone_Boxes(dialog, rows);
    DestroyWindow(dialog);
}

} // namespace
