#include "ui/dialogs/dialog_resources.h"

#include <initializer_list>

namespace orvell::ui {

namespace {

const LPCWSTR kDialogResource = MAKEINTRESOURCEW(5);  // RT_DIALOG

const DLGTEMPLATE* FindDialogIn(HMODULE module, int number) {
    const HRSRC place = FindResourceW(module, MAKEINTRESOURCEW(number), kDialogResource);
    const HGLOBAL resource = place == nullptr ? nullptr : LoadResource(module, place);
    return resource == nullptr ? nullptr : static_cast<const DLGTEMPLATE*>(LockResource(resource));
}

}  // namespace

const DLGTEMPLATE* DialogResources::FindDialog(int number) const {
    for (const HMODULE module : {languageModule_, static_cast<HMODULE>(instance_)}) {
        if (const DLGTEMPLATE* found = module == nullptr ? nullptr : FindDialogIn(module, number)) {
            return found;
        }
    }
    return nullptr;
}

DialogResources::Icon DialogResources::LoadWindowSymbol(int number, bool isLarge) const {
    const int width = GetSystemMetrics(isLarge ? SM_CXICON : SM_CXSMICON);
    const int height = GetSystemMetrics(isLarge ? SM_CYICON : SM_CYSMICON);
    for (const HMODULE module : {languageModule_, static_cast<HMODULE>(instance_)}) {
        void* image = module == nullptr ? nullptr
                                        : LoadImageW(module, MAKEINTRESOURCEW(number), IMAGE_ICON,
                                                     width, height, LR_DEFAULTCOLOR);
        if (image != nullptr) {
            return Icon(static_cast<HICON>(image));
        }
    }
    return nullptr;
}

}  // namespace orvell::ui
