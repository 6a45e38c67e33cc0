// Pages of tab controls: child dialogs owned by the tabs, shown one at a time.
#include "ostrel_ui.h"

#include "platform/window/dialog_creation.h"
#include "platform/window/message_dispatch.h"
#include "platform/window/window_registry.h"

using namespace tabra::window;

namespace {

WindowPtr tabOf(HWND handle) {
    auto window = findWindow(handle);
    return window && window->kind == WindowKind::TabControl ? window : nullptr;
}

int32_t resolveTab(const TabState &state, int32_t index) {
    if (index == -1) index = state.current;
    return index >= 0 && index < static_cast<int32_t>(state.items.size()) ? index : -1;
}

} // namespace

extern "C" {

int32_t Ostrel_AddTabControlItem(HWND handle, int32_t position, HMODULE module, int32_t templateId,
                                 DLGPROC procedure, LPARAM parameter) {
    auto tab = tabOf(handle);
    if (!tab || position < -1) return -1;
    HWND page = createDialog(module, templateId, handle, procedure, parameter, false, true);
    auto pageWindow = findWindow(page);
    if (!pageWindow) return -1;
    tab = tabOf(handle); // the page's WM_INITDIALOG may have destroyed the tab
    if (!tab) return -1;
    auto count = static_cast<int32_t>(tab->as<TabState>()->items.size());
    std::u16string caption = pageWindow->text;
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = caption.data();
    auto index = static_cast<int32_t>(sendMessage(handle, TCM_INSERTITEMW,
                                                  static_cast<WPARAM>(position == -1 || position > count ? count : position),
                                                  reinterpret_cast<LPARAM>(&item)));
    if (index < 0) return -1;
    tab->as<TabState>()->items[static_cast<std::size_t>(index)].page = page;
    return index;
}

int32_t Ostrel_ShowTabControlItem(HWND handle, int32_t index) {
    auto tab = tabOf(handle);
    if (!tab) return -1;
    int32_t shown = resolveTab(*tab->as<TabState>(), index);
    if (shown < 0) return -1;
    setCurrentTab(*tab, shown);
    std::vector<TabItem> items = tab->as<TabState>()->items;
    for (int32_t i = 0; i < static_cast<int32_t>(items.size()); ++i) {
        auto page = findWindow(items[static_cast<std::size_t>(i)].page);
        if (!page || page->visible == (i == shown)) continue;
        page->visible = i == shown;
        announce(*page, Change::Visible);
    }
    return shown;
}

HWND Ostrel_GetTabControlPage(HWND handle, int32_t index) {
    auto tab = tabOf(handle);
    if (!tab) return nullptr;
    const auto &state = *tab->as<TabState>();
    int32_t resolved = resolveTab(state, index);
    if (resolved < 0) return nullptr;
    HWND page = state.items[static_cast<std::size_t>(resolved)].page;
    return findWindow(page) ? page : nullptr;
}

} // extern "C"
