#include "editor_access.h"

#include "windowless_access.h"

int LoadingFile = 0;

namespace {

EditorAccess* currentAccess = nullptr;

}  // namespace

EditorAccess& editorAccess()
{
    static WindowlessAccess withoutWindow;
    return currentAccess == nullptr ? withoutWindow : *currentAccess;
}

void setEditorAccess(EditorAccess* access)
{
    currentAccess = access;
}
