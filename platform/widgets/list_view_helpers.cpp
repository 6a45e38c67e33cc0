// The in-house helpers for report list views: columns from a "Title|width|..."
// column list and items from a separated list of column texts.
#include "ostrel_ui.h"

#include "platform/window/message_dispatch.h"
#include "platform/window/window_registry.h"

#include <string>
#include <vector>

using namespace tabra::window;

namespace {

constexpr std::size_t kTitleLimit = 99;
constexpr std::size_t kWidthDigits = 9;
constexpr int32_t kDefaultWidth = 100;

WindowPtr listViewOf(HWND handle) {
    auto window = findWindow(handle);
    return window && window->kind == WindowKind::ListView ? window : nullptr;
}

std::vector<std::u16string> split(std::u16string_view text, char16_t separator) {
    std::vector<std::u16string> pieces;
    std::size_t start = 0;
    while (true) {
        std::size_t end = text.find(separator, start);
        pieces.emplace_back(text.substr(start, end == std::u16string_view::npos ? std::u16string_view::npos : end - start));
        if (end == std::u16string_view::npos) break;
        start = end + 1;
    }
    return pieces;
}

int32_t parseWidth(const std::u16string &text) {
    if (text.empty() || text.size() > kWidthDigits) return kDefaultWidth;
    int32_t width = 0;
    for (char16_t c : text) {
        if (c < u'0' || c > u'9') return kDefaultWidth;
        width = width * 10 + (c - u'0');
    }
    return width;
}

} // namespace

extern "C" {

int32_t Ostrel_ListView_CreateColumns(HWND handle, const char16_t *columnList) {
    auto view = listViewOf(handle);
    if (!view || !columnList) return -1;
    while (!view->as<ListViewState>()->columns.empty()) sendMessage(handle, LVM_DELETECOLUMN, 0, 0);
    auto pieces = split(columnList, u'|');
    int32_t created = 0;
    for (std::size_t i = 0; i < pieces.size(); i += 2) {
        if (pieces[i].empty() && i + 1 >= pieces.size()) break; // a trailing "|"
        std::u16string title = pieces[i].substr(0, kTitleLimit);
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        column.pszText = title.data();
        column.cx = i + 1 < pieces.size() ? parseWidth(pieces[i + 1]) : kDefaultWidth;
        column.iSubItem = created;
        if (sendMessage(handle, LVM_INSERTCOLUMNW, static_cast<WPARAM>(created), reinterpret_cast<LPARAM>(&column)) >= 0)
            ++created;
    }
    return created;
}

int32_t Ostrel_ListView_InsertItem(HWND handle, int32_t index, const char16_t *texts, char16_t separator, LPARAM param) {
    auto view = listViewOf(handle);
    if (!view || index < -1) return -1;
    auto pieces = split(texts ? texts : u"", separator);
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = index == -1 ? static_cast<int32_t>(view->as<ListViewState>()->items.size()) : index;
    item.pszText = pieces[0].data();
    item.lParam = param;
    auto inserted = static_cast<int32_t>(sendMessage(handle, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    if (inserted < 0) return -1;
    for (std::size_t sub = 1; sub < pieces.size(); ++sub) {
        LVITEMW text{};
        text.iSubItem = static_cast<int32_t>(sub);
        text.pszText = pieces[sub].data();
        sendMessage(handle, LVM_SETITEMTEXTW, static_cast<WPARAM>(inserted), reinterpret_cast<LPARAM>(&text));
    }
    return inserted;
}

} // extern "C"
