// The driver information dialog: what the ODBC driver reports about the open
// connection, each answer in a read-only field.
#include "admin/driver_info/driver_info.h"
#include "admin/driver_info/resource_ids.h"
#include "core/connection/connection_info.h"
#include "core/dialogs/dialog.h"
#include "core/resource_ids.h"
#include "tabra_admin.h"

#include <sqlext.h>

#include <memory>
#include <new>
#include <string>

namespace {

using tabra::admin::driver_info::ids::kDriverInfoDialog;
using tabra::admin::driver_info::ids::kString;

// Room the driver is given for each text, in bytes (ODBC counts them so): 49
// characters and the terminator.
constexpr int32_t kInfoBytes = 100;
// The database name is asked with as much room as Tabra_GetDatabaseName is given.
constexpr int32_t kDatabaseNameLength = 500;
constexpr int32_t kFormatCapacity = 100;

// The dialog's record: the connection, on the heap while the dialog is open.
struct DriverInformation {
    SQLHDBC connection = SQL_NULL_HDBC;
};

struct InfoField {
    int32_t control;
    SQLUSMALLINT code;
};

constexpr InfoField kInfoFields[] = {
    {kDriverInfoDialog.dbmsName, SQL_DBMS_NAME},           {kDriverInfoDialog.dbmsVersion, SQL_DBMS_VER},
    {kDriverInfoDialog.odbcVersion, SQL_DRIVER_ODBC_VER},  {kDriverInfoDialog.driverVersion, SQL_DRIVER_VER},
    {kDriverInfoDialog.dataSource, SQL_DATA_SOURCE_NAME},
};

// The format of string 2811 with its three arguments in order: %s takes the text, %d
// and %X (or %x) the number in decimal and hexadecimal; %% is one percent sign. Other
// sequences stay as they are.
std::u16string formatQuote(const char16_t *format, const std::u16string &text, int32_t code) {
    auto hex = [](int32_t value, bool upper) {
        constexpr char16_t kDigits[] = u"0123456789abcdef0123456789ABCDEF";
        std::u16string digits;
        auto rest = static_cast<uint32_t>(value);
        do {
            digits.insert(digits.begin(), kDigits[(rest % 16) + (upper ? 16 : 0)]);
            rest /= 16;
        } while (rest != 0);
        return digits;
    };
    std::u16string result;
    for (const char16_t *c = format; *c != u'\0'; ++c) {
        if (*c != u'%' || c[1] == u'\0') {
            result += *c;
            continue;
        }
        switch (*++c) {
        case u's': result += text; break;
        case u'd':
            for (char digit : std::to_string(code)) result += static_cast<char16_t>(digit);
            break;
        case u'x':
        case u'X': result += hex(code, *c == u'X'); break;
        case u'%': result += u'%'; break;
        default:
            result += u'%';
            result += *c;
            break;
        }
    }
    return result;
}

void showInformation(HWND dialog, DriverInformation &information) {
    char16_t text[kDatabaseNameLength] = {};
    for (const InfoField &field : kInfoFields) {
        tabra::connection::readTextInfo(information.connection, field.code, text, kInfoBytes);
        SetDlgItemTextW(dialog, field.control, text);
    }
    tabra::connection::readTextInfo(information.connection, SQL_DATABASE_NAME, text, kDatabaseNameLength);
    SetDlgItemTextW(dialog, kDriverInfoDialog.databaseName, text);

    auto quote = tabra::connection::identifierQuote(information.connection);
    char16_t format[kFormatCapacity] = {};
    tabra::module::LoadTranslatedString(tabra::module::resourceLibrary(), kString.quoteCharacter, format,
                                        kFormatCapacity);
    SetDlgItemTextW(dialog, kDriverInfoDialog.quoteCharacter,
                    formatQuote(format, quote.text, static_cast<int32_t>(quote.first())).c_str());
}

// Nothing can be edited: the focus starts on OK.
HWND okButton(HWND dialog, DriverInformation &) { return GetDlgItem(dialog, IDOK); }

constexpr tabra::dialogs::Dialog<DriverInformation> kDialog{.initialise = showInformation, .initialFocus = okButton};

} // namespace

extern "C" INT_PTR OdbcInfoCtlDialogCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kDialog.answer(dialog, message, wParam, lParam);
}

void tabra::admin::driver_info::showDriverInformation(SQLHDBC connection, HWND parent) {
    std::unique_ptr<DriverInformation> information;
    try {
        information = std::make_unique<DriverInformation>();
    } catch (const std::bad_alloc &) {
        ShowMessage(tabra::core::ids::kMessage.outOfMemory, nullptr, nullptr, nullptr);
        return;
    }
    information->connection = connection;
    tabra::dialogs::runModal(kDriverInfoDialog.id, OdbcInfoCtlDialogCallback, *information, parent);
}

extern "C" void Tabra_DisplayDriverInformation(SQLHDBC connection, HWND parent) {
    tabra::admin::driver_info::showDriverInformation(connection, parent);
}
