// The resource libraries that ship with the library: they load, hold every id the
// family headers name, the languages agree on every id, button set and insert, and
// the dialogs the code opens hold the controls it drives, laid out inside their frames.
#include "admin/driver_info/resource_ids.h"
#include "admin/resource_ids.h"
#include "admin/sql_performer/resource_ids.h"
#include "admin/table_name/resource_ids.h"
#include "admin/table_admin/resource_ids.h"
#include "catalog/resource_ids.h"
#include "core/resource_ids.h"
#include "ostrel_ui.h"
#include "platform/resources/resource_script_file.h"
#include "query/designer/selection_rows.h"
#include "query/resource_ids.h"
#include "query/select_wizard/resource_ids.h"
#include "resource_test_support.h"
#include "tabra_query.h"
#include "tabra_window_constants.h"
#include "wizards/add_records/resource_ids.h"
#include "wizards/create_table/resource_ids.h"
#include "wizards/import/resource_ids.h"
#include "wizards/export/resource_ids.h"
#include "wizards/records/resource_ids.h"
#include "wizards/resource_ids.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <type_traits>
#include <vector>

using tabra::platform::ControlKind;
using tabra::platform::ControlTemplate;
using tabra::platform::DialogTemplate;
using tabra::platform::ResourceModule;
using tabra::platform::ResourceTables;

namespace {

// The shipped library of a language, read once per test program.
const ResourceTables &shipped(const std::string &language) {
    static std::map<std::string, std::unique_ptr<ResourceModule>> loaded;
    auto &module = loaded[language];
    if (!module) {
        std::string path = (tabra::test::shippedResourceDirectory() / language / "tabraRes.rc").string();
        std::string error;
        module = tabra::platform::readResourceLibrary(path, error);
        if (!module) {
            ADD_FAILURE() << error;
            module = std::make_unique<ResourceModule>();
        }
    }
    return module->tables;
}

const ControlTemplate *findControl(const DialogTemplate &dialog, int32_t id) {
    auto found = std::find_if(dialog.controls.begin(), dialog.controls.end(),
                              [id](const ControlTemplate &c) { return c.id == id; });
    return found == dialog.controls.end() ? nullptr : &*found;
}

// The %1 %2 %3 inserts a text uses.
std::multiset<std::u16string> insertsOf(const std::u16string &text) {
    std::multiset<std::u16string> inserts;
    for (size_t i = 0; i + 1 < text.size(); ++i)
        if (text[i] == u'%' && text[i + 1] >= u'1' && text[i + 1] <= u'9') inserts.insert(text.substr(i, 2));
    return inserts;
}

// The ids of a family struct, member by member (every member is an int32_t id).
template <class Ids> std::vector<int32_t> idsOf(const Ids &ids) {
    static_assert(std::has_unique_object_representations_v<Ids> && alignof(Ids) == alignof(int32_t) &&
                  sizeof(Ids) % sizeof(int32_t) == 0, "an id struct holds int32_t members only");
    auto members = std::bit_cast<std::array<int32_t, sizeof(Ids) / sizeof(int32_t)>>(ids);
    return {members.begin(), members.end()};
}

std::vector<int32_t> joined(std::vector<int32_t> first, const std::vector<int32_t> &second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// The controls of the rows of a row table.
std::vector<int32_t> rowControls(const ConditionRow *rows) {
    std::vector<int32_t> controls;
    for (const ConditionRow *row = rows; row->column > 0; ++row)
        if (row->column > 1) controls.insert(controls.end(), {row->column, row->operation, row->value});
    return controls;
}

// The condition rows of the selection dialog are controls of it too.
std::vector<int32_t> selectionRowControls() {
    constexpr ConditionRow rows[] = TABRA_SELECTION_DIALOG_ROWS;
    return rowControls(rows);
}

// The designer's pages: each holds the list controls, the selection page its
// condition rows instead of the design's list.
std::vector<int32_t> designerPageControls(const std::vector<int32_t> &page, bool conditionRows) {
    namespace query = tabra::query::ids;
    std::vector<int32_t> controls = joined(page, idsOf(query::kDesignerList));
    if (!conditionRows) return controls;
    std::erase(controls, query::kDesignerList.chosen);
    return joined(controls, rowControls(tabra::query::designer::kSelectionRows));
}

// What a family header names: each dialog as its template id followed by its
// controls, and its strings, messages and menus.
struct Family {
    std::string header;
    std::vector<std::vector<int32_t>> dialogs;
    std::vector<int32_t> strings, messages, menus;
};

const std::vector<Family> &families() {
    namespace core = tabra::core::ids;
    namespace query = tabra::query::ids;
    namespace importing = tabra::wizards::importing::ids;
    namespace addRecords = tabra::wizards::add_records::ids;
    namespace exporting = tabra::wizards::exporting::ids;
    namespace records = tabra::wizards::records::ids;
    namespace createTable = tabra::wizards::create_table::ids;
    namespace driverInfo = tabra::admin::driver_info::ids;
    namespace tableName = tabra::admin::table_name::ids;
    std::vector<int32_t> fileErrors;
    for (int32_t code = OSTREL_FILE_ERROR_ACCESS; code <= OSTREL_FILE_ERROR_OTHER; ++code)
        fileErrors.push_back(OSTREL_FILE_ERROR_STRINGS + code);
    static const std::vector<Family> all = {
        {"core/resource_ids.h",
         {idsOf(core::kDataSourceDialog), idsOf(core::kErrorDialog), idsOf(core::kSchemaDialog),
          idsOf(core::kDataSourceAndSchemaDialog)},
         joined(idsOf(core::kString), fileErrors), idsOf(core::kMessage), {}},
        {"catalog/resource_ids.h", {}, joined(idsOf(tabra::catalog::ids::kString), idsOf(tabra::catalog::ids::kColumnTypeLabel)),
         idsOf(tabra::catalog::ids::kMessage), {}},
        {"query/resource_ids.h",
         {idsOf(query::kAliasDialog), joined(idsOf(query::kSelectionDialog), joined(selectionRowControls(), {IDHELP})),
          joined(idsOf(query::kDesignerDialog), {IDOK, IDCANCEL, IDHELP}),
          designerPageControls(idsOf(query::kDesignerTablesPage), false),
          designerPageControls(idsOf(query::kDesignerColumnsPage), false),
          designerPageControls(idsOf(query::kDesignerSelectionPage), true),
          designerPageControls(idsOf(query::kDesignerSortPage), false), idsOf(query::kDesignerJoinDialog),
          idsOf(query::kDesignerColumnDialog), joined(idsOf(query::kViewEditorDialog), {IDOK, IDCANCEL})},
         joined(joined(idsOf(query::kString),
                       joined(idsOf(query::kOperatorLabel), joined(idsOf(query::kDesignerLabel), idsOf(query::kDesignerString)))),
                idsOf(query::kViewEditorString)),
         joined(joined(idsOf(query::kMessage), idsOf(query::kDesignerMessage)), idsOf(query::kViewEditorMessage)), {}},
        {"query/select_wizard/resource_ids.h",
         {joined(idsOf(tabra::query::select_wizard::ids::kSelectWizardDialog), {IDOK, IDCANCEL, IDHELP})}, {}, {}, {}},
        {"wizards/resource_ids.h", {}, idsOf(tabra::wizards::ids::kString), idsOf(tabra::wizards::ids::kMessage), {}},
        {"wizards/add_records/resource_ids.h",
         {idsOf(addRecords::kDestinationTablePage), idsOf(addRecords::kDataSourcePage),
          idsOf(addRecords::kSourceTablePage), idsOf(addRecords::kMappingPage), idsOf(addRecords::kIdPage),
          idsOf(addRecords::kSummaryPage), idsOf(addRecords::kFieldDialog)},
         idsOf(addRecords::kString), idsOf(addRecords::kMessage), {}},
        {"wizards/import/resource_ids.h",
         {idsOf(importing::kSourceKindPage), idsOf(importing::kTextFilePage), idsOf(importing::kSelectionFilePage),
          idsOf(importing::kSdiFilePage), idsOf(importing::kDataSourcePage), idsOf(importing::kSourceTablePage),
          idsOf(importing::kMappingPage), idsOf(importing::kDestinationPage), idsOf(importing::kClosingPage),
          idsOf(importing::kFieldDialog)},
         idsOf(importing::kString), idsOf(importing::kMessage), {importing::kFieldMenu.id}},
        {"wizards/export/resource_ids.h",
         {idsOf(exporting::kTablePage), idsOf(exporting::kFieldsPage), idsOf(exporting::kConditionPage),
          idsOf(exporting::kFilePage), idsOf(exporting::kSummaryPage), idsOf(exporting::kFieldDialog)},
         idsOf(exporting::kString), idsOf(exporting::kMessage), {exporting::kFieldMenu.id}},
        {"admin/resource_ids.h", {}, {}, idsOf(tabra::admin::ids::kMessage), {}},
        {"wizards/records/resource_ids.h",
         {idsOf(records::kDeleteTablePage), idsOf(records::kUpdateTablePage),
          joined(idsOf(records::kDeleteConditionPage), rowControls(records::kConditionRows)),
          joined(idsOf(records::kUpdateConditionPage), rowControls(records::kConditionRows)),
          joined(idsOf(records::kAssignmentPage), rowControls(records::kAssignmentRows)), idsOf(records::kSummaryPage),
          idsOf(records::kConfirmationPage), idsOf(records::kResultPage)},
         idsOf(records::kString), idsOf(records::kMessage), {}},
        {"admin/sql_performer/resource_ids.h",
         {idsOf(tabra::admin::sql_performer::ids::kRecordPerformerDialog),
          idsOf(tabra::admin::sql_performer::ids::kConnectionPerformerDialog),
          idsOf(tabra::admin::sql_performer::ids::kSqlHelpDialog)},
         idsOf(tabra::admin::sql_performer::ids::kString), {}, {}},
        {"wizards/create_table/resource_ids.h",
         {idsOf(createTable::kModePage), idsOf(createTable::kSourcePage), idsOf(createTable::kNamePage),
          idsOf(createTable::kClosingPage)},
         idsOf(createTable::kString), {}, {}},
        {"admin/driver_info/resource_ids.h", {idsOf(driverInfo::kDriverInfoDialog)}, idsOf(driverInfo::kString), {}, {}},
        {"admin/table_name/resource_ids.h", {idsOf(tableName::kTableNameDialog)}, {}, idsOf(tableName::kMessage), {}},
        {"admin/table_admin/resource_ids.h",
         {joined(idsOf(tabra::admin::table_admin::ids::kTableAdminDialog), {IDOK}),
          joined(idsOf(tabra::admin::table_admin::ids::kAddColumnDialog), {IDOK, IDCANCEL}),
          joined(idsOf(tabra::admin::table_admin::ids::kAddAutoIncrementDialog), {IDOK, IDCANCEL}),
          joined(idsOf(tabra::admin::table_admin::ids::kAddPrimaryKeyDialog), {IDOK, IDCANCEL})},
         idsOf(tabra::admin::table_admin::ids::kString), idsOf(tabra::admin::table_admin::ids::kMessage),
         idsOf(tabra::admin::table_admin::ids::kMenu)},
    };
    return all;
}

} // namespace

class ShippedLanguage : public ::testing::TestWithParam<std::string> {};

// A misspelt id in a header, a text missing in a language or a control missing in a
// template fails here.
TEST_P(ShippedLanguage, HoldsEveryIdTheFamilyHeadersName) {
    const ResourceTables &tables = shipped(GetParam());
    for (const Family &family : families()) {
        SCOPED_TRACE(family.header);
        for (const auto &ids : family.dialogs) {
            auto dialog = tables.dialogs.find(ids.front());
            ASSERT_NE(dialog, tables.dialogs.end()) << "dialog " << ids.front();
            for (size_t i = 1; i < ids.size(); ++i)
                EXPECT_NE(findControl(dialog->second, ids[i]), nullptr) << "dialog " << ids.front() << " control " << ids[i];
        }
        for (int32_t id : joined(family.strings, family.messages)) {
            auto found = tables.strings.find(id);
            ASSERT_TRUE(found != tables.strings.end()) << "string " << id;
            EXPECT_FALSE(found->second.text.empty()) << "string " << id;
        }
        for (int32_t id : family.messages)
            EXPECT_NE(tables.strings.at(id).messageBoxStyle & MB_ICONMASK, 0u) << "message " << id << " has no icon";
        for (int32_t id : family.menus) EXPECT_EQ(tables.menus.count(id), 1u) << "menu " << id;
    }
}

// Messages that take a name keep its insert, and questions offer the answers their
// callers act on (for deleting columns No skips one column, Cancel ends the action).
TEST_P(ShippedLanguage, MessagesKeepTheirInsertsAndButtons) {
    namespace core = tabra::core::ids;
    namespace admin = tabra::admin::ids;
    const struct {
        int32_t id;
        uint32_t buttons;
        bool takesName;
    } messages[] = {
        {core::kMessage.outOfMemory, MB_OK, false},
        {core::kMessage.noDataSource, MB_OK, false},
        {core::kMessage.emptyDataSourceName, MB_OK, false},
        {core::kMessage.fileNotOpened, MB_OK, true},
        {core::kMessage.unbalancedParenthesis, MB_OK, true},
        {tabra::wizards::ids::kMessage.tableWithoutColumns, MB_OK, true},
        {tabra::wizards::importing::ids::kMessage.stoppedAtRecord, MB_OK, true},
        {tabra::wizards::importing::ids::kMessage.valueNotConverted, MB_OK, true},
        {tabra::wizards::exporting::ids::kMessage.fileAccessDenied, MB_OK, true},
        {tabra::wizards::exporting::ids::kMessage.fileNotOpened, MB_OK, true},
        {tabra::wizards::exporting::ids::kMessage.fileExists, MB_OK, true},
        {tabra::wizards::exporting::ids::kMessage.tooManyFiles, MB_OK, true},
        {tabra::catalog::ids::kMessage.confirmDropTable, MB_YESNO, true},
        {admin::kMessage.confirmDropView, MB_YESNO, true},
        {admin::kMessage.confirmDropColumn, MB_YESNOCANCEL, true},
        {admin::kMessage.confirmDropPrimaryKey, MB_YESNO, false},
        {core::kMessage.tableNameTaken, MB_OK, true},
        {tabra::admin::table_name::ids::kMessage.emptyName, MB_OK, false},
    };
    const ResourceTables &tables = shipped(GetParam());
    for (const auto &m : messages) {
        const auto &entry = tables.strings.at(m.id);
        EXPECT_EQ(entry.messageBoxStyle & MB_TYPEMASK, m.buttons) << "message " << m.id;
        if (m.buttons != MB_OK) {
            EXPECT_EQ(entry.messageBoxStyle & MB_ICONMASK, MB_ICONQUESTION) << "message " << m.id;
        }
        EXPECT_EQ(insertsOf(entry.text).count(u"%1"), m.takesName ? 1u : 0u) << "message " << m.id;
    }
}

// The kinds and looks of the controls the library's own dialog procedures drive.
TEST_P(ShippedLanguage, LibraryDialogsHoldTheControlsTheCodeDrives) {
    using namespace tabra::core::ids;
    constexpr uint32_t readOnly = ES_READONLY, multiLine = ES_MULTILINE | ES_READONLY;
    const auto &error = kErrorDialog;
    const auto &combined = kDataSourceAndSchemaDialog;
    const auto &designer = tabra::query::ids::kDesignerDialog;
    const auto &designerPages = tabra::query::ids::kDesignerTablesPage;
    const auto &join = tabra::query::ids::kDesignerJoinDialog;
    const auto &performer = tabra::admin::sql_performer::ids::kRecordPerformerDialog;
    const auto &heldPerformer = tabra::admin::sql_performer::ids::kConnectionPerformerDialog;
    const auto &sqlHelp = tabra::admin::sql_performer::ids::kSqlHelpDialog;
    const auto &modes = tabra::wizards::create_table::ids::kModePage;
    const auto &source = tabra::wizards::create_table::ids::kSourcePage;
    const auto &name = tabra::wizards::create_table::ids::kNamePage;
    const auto &info = tabra::admin::driver_info::ids::kDriverInfoDialog;
    const auto &tableName = tabra::admin::table_name::ids::kTableNameDialog;
    const struct {
        int32_t dialog;
        std::vector<int32_t> controls;
        ControlKind kind;
        uint32_t style; // bits that must be set
    } expected[] = {
        {error.id, {error.vendor, error.component, error.dataSource, error.state}, ControlKind::Edit, readOnly},
        {error.id, {error.message, error.statement}, ControlKind::Edit, multiLine},
        {error.id, {error.furtherMessage, IDOK, IDCANCEL}, ControlKind::PushButton, 0},
        {kDataSourceDialog.id, {kDataSourceDialog.dataSources}, ControlKind::ListBox, 0},
        {kDataSourceDialog.id, {kDataSourceDialog.user}, ControlKind::Edit, 0},
        {kDataSourceDialog.id, {kDataSourceDialog.password}, ControlKind::Edit, ES_PASSWORD},
        {kDataSourceDialog.id, {IDOK, IDCANCEL}, ControlKind::PushButton, 0},
        {kSchemaDialog.id, {kSchemaDialog.schemas}, ControlKind::ListBox, 0},
        {kSchemaDialog.id, {kSchemaDialog.schema}, ControlKind::Edit, 0},
        {kSchemaDialog.id, {IDOK, IDCANCEL}, ControlKind::PushButton, 0},
        {combined.id, {combined.dataSource, combined.user, combined.schema}, ControlKind::Edit, 0},
        {combined.id, {combined.password}, ControlKind::Edit, ES_PASSWORD},
        {combined.id, {combined.chooseDataSource, combined.chooseSchema, IDOK, IDCANCEL}, ControlKind::PushButton, 0},
        {designer.id, {designer.statement}, ControlKind::Edit, multiLine},
        {designer.id, {designer.pages}, ControlKind::TabControl, 0},
        {designerPages.id, {tabra::query::ids::kDesignerList.chosen}, ControlKind::ListView, LVS_REPORT | LVS_SINGLESEL},
        {designerPages.id, {tabra::query::ids::kDesignerList.available}, ControlKind::ListBox, 0},
        {join.id, {join.joinType, join.comparison}, ControlKind::ComboBox, CBS_DROPDOWNLIST},
        {performer.id, {performer.statement}, ControlKind::Edit, ES_MULTILINE | ES_WANTRETURN},
        {performer.id, {performer.dataSource}, ControlKind::Edit, ES_READONLY},
        {performer.id, {performer.history}, ControlKind::ListBox, 0},
        {heldPerformer.id, {heldPerformer.statement}, ControlKind::Edit, ES_MULTILINE | ES_WANTRETURN},
        {heldPerformer.id, {heldPerformer.history}, ControlKind::ListBox, 0},
        {sqlHelp.id, {sqlHelp.examples}, ControlKind::ListBox, 0},
        {modes.id, {modes.keyColumnOnly, modes.copyStructure, modes.defaultDefinition}, ControlKind::RadioButton, 0},
        {source.id, {source.tables}, ControlKind::ListBox, LBS_NOTIFY},
        {name.id, {name.name}, ControlKind::Edit, 0},
        {info.id, {info.dbmsName, info.dbmsVersion, info.odbcVersion, info.driverVersion, info.dataSource,
                   info.quoteCharacter, info.databaseName}, ControlKind::Edit, readOnly},
        {tableName.id, {tableName.name}, ControlKind::Edit, 0},
        {tableName.id, {IDOK, IDCANCEL}, ControlKind::PushButton, 0},
    };
    const ResourceTables &tables = shipped(GetParam());
    for (const auto &e : expected) {
        for (int32_t id : e.controls) {
            const ControlTemplate *c = findControl(tables.dialogs.at(e.dialog), id);
            ASSERT_NE(c, nullptr) << e.dialog << "/" << id;
            EXPECT_EQ(c->kind, e.kind) << e.dialog << "/" << id;
            EXPECT_EQ(c->style & e.style, e.style) << e.dialog << "/" << id;
        }
    }
    EXPECT_FALSE(findControl(tables.dialogs.at(kDataSourceDialog.id), kDataSourceDialog.user)->style & ES_PASSWORD)
        << "the user name shows";
}

TEST_P(ShippedLanguage, DialogsAreLaidOutInsideTheirFrames) {
    for (const auto &[id, dialog] : shipped(GetParam()).dialogs) {
        SCOPED_TRACE("dialog " + std::to_string(id));
        int defaults = 0;
        for (const ControlTemplate &c : dialog.controls) {
            SCOPED_TRACE("control " + std::to_string(c.id) + " " + tabra::test::narrow(c.text));
            EXPECT_GE(c.x, 7);
            EXPECT_GE(c.y, 7);
            EXPECT_LE(c.x + c.width, dialog.width - 7);
            // A combo box's height includes its drop-down list; the closed box is 14 high.
            int shown = c.kind == ControlKind::ComboBox ? 14 : c.height;
            EXPECT_LE(c.y + shown, dialog.height - 7);
            if (c.kind == ControlKind::PushButton) {
                EXPECT_EQ(c.height, 14);
                EXPECT_GE(c.width, 50);
                if ((c.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON) ++defaults;
            }
        }
        if (dialog.childPage) continue; // pages live inside a frame that has the buttons
        EXPECT_FALSE(dialog.caption.empty());
        EXPECT_EQ(defaults, 1) << "one default button";
        // OK and Cancel sit at the right edge, Cancel last: side by side at the bottom,
        // or one above the other in a button column.
        const ControlTemplate *ok = findControl(dialog, IDOK);
        const ControlTemplate *cancel = findControl(dialog, IDCANCEL);
        if (ok == nullptr || cancel == nullptr) continue;
        EXPECT_EQ(cancel->x + cancel->width, dialog.width - 7);
        if (ok->y == cancel->y) {
            EXPECT_EQ(cancel->y + cancel->height, dialog.height - 7);
            EXPECT_LT(ok->x + ok->width, cancel->x);
        } else {
            EXPECT_EQ(ok->x, cancel->x);
            EXPECT_LT(ok->y + ok->height, cancel->y);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, ShippedLanguage, ::testing::Values("en", "de"));

TEST(ShippedTranslations, GermanHasEveryEnglishStringWithTheSameButtonsAndInserts) {
    const ResourceTables &en = shipped("en");
    const ResourceTables &de = shipped("de");
    for (const auto &[id, english] : en.strings) {
        auto german = de.strings.find(id);
        ASSERT_NE(german, de.strings.end()) << "string " << id << " missing in de";
        EXPECT_EQ(german->second.messageBoxStyle, english.messageBoxStyle) << "string " << id;
        EXPECT_EQ(insertsOf(german->second.text), insertsOf(english.text)) << "string " << id;
        if (id != tabra::core::ids::kString.caption) {
            EXPECT_NE(german->second.text, english.text) << "string " << id << " is not translated";
        }
    }
    EXPECT_EQ(de.strings.size(), en.strings.size()) << "de holds strings en does not";
}

TEST(ShippedTranslations, GermanDialogsMatchTheEnglishControls) {
    const ResourceTables &en = shipped("en");
    const ResourceTables &de = shipped("de");
    ASSERT_EQ(de.dialogs.size(), en.dialogs.size());
    for (const auto &[id, english] : en.dialogs) {
        ASSERT_EQ(de.dialogs.count(id), 1u) << "dialog " << id;
        const DialogTemplate &german = de.dialogs.at(id);
        EXPECT_NE(german.caption, english.caption) << "dialog " << id << " is not translated";
        ASSERT_EQ(german.controls.size(), english.controls.size()) << "dialog " << id;
        for (size_t i = 0; i < english.controls.size(); ++i) {
            EXPECT_EQ(german.controls[i].id, english.controls[i].id) << "dialog " << id << " control " << i;
            EXPECT_EQ(german.controls[i].kind, english.controls[i].kind) << "dialog " << id << " control " << i;
            EXPECT_EQ(german.controls[i].style, english.controls[i].style) << "dialog " << id << " control " << i;
        }
    }
}

// Every family header of the tree is read by HoldsEveryIdTheFamilyHeadersName.
TEST(ShippedResourceIds, EveryFamilyHeaderIsChecked) {
    std::set<std::string> listed, found;
    for (const Family &family : families()) listed.insert(family.header);
    for (auto entry = std::filesystem::recursive_directory_iterator(TABRA_SOURCE_DIR);
         entry != std::filesystem::recursive_directory_iterator(); ++entry) {
        std::string name = entry->path().filename().string();
        if (entry.depth() == 0 && (name.starts_with(".") || name.starts_with("build"))) entry.disable_recursion_pending();
        if (name == "resource_ids.h") found.insert(std::filesystem::relative(entry->path(), TABRA_SOURCE_DIR).string());
    }
    EXPECT_EQ(found, listed);
}
