// The exported designer functions: a handle around a QueryDesign, and thin shells
// over the model. Nothing here throws out of the library.
#include "platform/text/bounded_text.h"
#include "query/designer/design_copy.h"
#include "query/designer/design_descriptors.h"
#include "query/designer/statement_generation.h"
#include "core/resource_ids.h"
#include "query/resource_ids.h"
#include "tabra_connection.h"
#include "tabra_designer.h"

#include <memory>
#include <new>

using namespace tabra::query::designer;
using tabra::platform::viewOf;
using tabra::platform::writeBounded;

struct SelFactObject {
    QueryDesign design;
};

int32_t tabra::query::designer::editSelFact(SelFact handle, HWND parent, const DesignerDialogRun &runDialog) {
    if (handle == nullptr) return 2;
    return editOnCopy(handle->design, parent, runDialog);
}

extern "C" int32_t Tabra_SelFact_Create(SelFact *handleOut, SQLHDBC connection, const char16_t *schema,
                                        uint32_t flags) {
    if (handleOut == nullptr) return TABRA_SELFACT_NO_HANDLE;
    *handleOut = nullptr;
    try {
        *handleOut = std::make_unique<SelFactObject>(QueryDesign(connection, viewOf(schema), flags)).release();
        return TABRA_SELFACT_OK;
    } catch (const std::bad_alloc &) {
        return TABRA_SELFACT_NO_MEMORY;
    }
}

extern "C" void Tabra_SelFact_Destroy(SelFact handle) { std::unique_ptr<SelFactObject> owned(handle); }

extern "C" int32_t Tabra_SelFact_CreateSql(SelFact handle, char16_t *out, int32_t outChars, int32_t) {
    if (handle == nullptr) return TABRA_SELFACT_NO_HANDLE;
    if (out == nullptr || outChars < 1) return TABRA_SELFACT_OK;
    try {
        writeBounded(out, outChars, statementText(handle->design, static_cast<size_t>(outChars)));
    } catch (const std::bad_alloc &) {
        out[0] = u'\0';
    }
    return TABRA_SELFACT_OK;
}

extern "C" int32_t Tabra_SelFact_ParseSql(SelFact handle, const char16_t *, int32_t) {
    return handle == nullptr ? TABRA_SELFACT_NO_HANDLE : TABRA_SELFACT_OK;
}

extern "C" void Tabra_SelFact_GetDescriptor(SelFact handle, int32_t kind, char16_t *out, int32_t outChars) {
    if (handle == nullptr || !isDescriptorKind(kind) || out == nullptr) return;
    if (outChars < (kind == TABRA_SELFACT_SELECTION ? 1 : 2)) return;
    try {
        writeBounded(out, outChars, descriptorText(handle->design, kind));
    } catch (const std::bad_alloc &) {
        out[0] = u'\0';
    }
}

extern "C" void Tabra_SelFact_SetDescriptor(SelFact handle, int32_t kind, const char16_t *text) {
    if (handle == nullptr) return;
    try {
        setDescriptor(handle->design, kind, viewOf(text));
    } catch (const std::bad_alloc &) {
        setDescriptor(handle->design, kind, u""); // a list that could not be read whole is left empty
    }
}

extern "C" int32_t Tabra_SelFact_DisplayError(int32_t code) {
    if (code == TABRA_SELFACT_NO_MEMORY) ShowMessage(tabra::core::ids::kMessage.outOfMemory, nullptr, nullptr, nullptr);
    return 1;
}
