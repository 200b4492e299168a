#include "ui/dialogs/dialog_resources.h"

#include <array>
#include <cstring>
#include <cwchar>
#include <filesystem>
#include <set>

#include "dialog_fixture.h"
#include "online_target.h"
#include "ui/dialogs/transfer_dialog.h"

namespace orvell::ui {
namespace {

using test::DialogUser;

/// A library of one language.
class LanguageLibrary {
  public:
    /// The one of the product, beside the folder of the test program.
    explicit LanguageLibrary(const wchar_t* language)
        : LanguageLibrary(ProductFolder() / language / "ORVELLRES.DLL") {}
    explicit LanguageLibrary(const std::filesystem::path& path)
        : module_(LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE)) {
        EXPECT_NE(module_, nullptr);
    }
    ~LanguageLibrary() { FreeLibrary(module_); }
    LanguageLibrary(const LanguageLibrary&) = delete;
    LanguageLibrary& operator=(const LanguageLibrary&) = delete;

    [[nodiscard]] HMODULE Module() const { return module_; }

  private:
    static std::filesystem::path ProductFolder() {
        std::array<wchar_t, MAX_PATH> program{};
        GetModuleFileNameW(nullptr, program.data(), MAX_PATH);
        return std::filesystem::path(program.data()).parent_path().parent_path() / "bin";
    }

    HMODULE module_;
};

/// The width that a control's text needs, in its own font. Up-down controls do not show theirs.
LONG TextWidth(HWND control) {
    std::array<wchar_t, 200> text{};
    int length = GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    while (length > 0 && text[static_cast<std::size_t>(length) - 1] == L' ') {
        --length;
    }
    if (std::wstring_view(text.data()) == L"Spin1") {
        return 0;
    }
    const HDC context = GetDC(control);
    const HGDIOBJ before =
        SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    SIZE size{};
    GetTextExtentPoint32W(context, text.data(), length, &size);
    SelectObject(context, before);
    ReleaseDC(control, context);
    return size.cx;
}

LONG RoomForText(HWND control) {
    RECT client{};
    GetClientRect(control, &client);
    std::array<wchar_t, 16> name{};
    GetClassNameW(control, name.data(), static_cast<int>(name.size()));
    const bool isButton = _wcsicmp(name.data(), L"Button") == 0;
    const bool isCheckBox =
        isButton && (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) == BS_AUTOCHECKBOX;
    const int taken = isCheckBox ? GetSystemMetrics(SM_CXMENUCHECK) + 4
                      : isButton ? 2 * GetSystemMetrics(SM_CXEDGE)
                                 : 0;
    return client.right - taken;
}

class DialogLanguageTest : public DialogTest {
  protected:
    void ExpectTexts(const std::set<std::string>& parameter,
                     const std::set<std::string>& transfer) {
        OwnedDialogRecord owned(kInt, {1, 0});
        owned.record.mode = 1;
        owned.record.format = 0x80;
        EditWith(owned, [&](const DialogUser& user) {
            const HWND dialog = ParameterDialogOf(user);
            ExpectTextsOf(dialog, parameter);
            user.Press(dialog, IDCANCEL);
        });
        const EditorServices services = Services();
        OnlineTarget target;
        target.HoldAt(0);
        const Bytes value{1, 0};
        const OnlineAccessRecord functions = OnlineTarget::Functions();
        TransferDialog dialog(services, value, kInt, 1, functions);
        test::WorkDialogs([&] { dialog.Run(nullptr); },
                          [&](const DialogUser& user) {
                              ExpectTextsOf(TransferDialogOf(user), transfer);
                              target.Release();
                          });
    }

  private:
    /// All of the texts are there, and nothing is cut off.
    static void ExpectTextsOf(HWND dialog, const std::set<std::string>& expected) {
        std::set<std::string> texts;
        for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT)) {
            texts.insert(DialogUser::TextOf(child));
            EXPECT_LE(TextWidth(child), RoomForText(child)) << DialogUser::TextOf(child);
        }
        for (const std::string& text : expected) {
            EXPECT_TRUE(texts.contains(text)) << text;
        }
    }
};

const std::set<std::string> kGermanParameter{
    "Speicherbereich: ", "Vektor", "Kastenbreite: ", "Format: ", "OK", "Abbrechen"};
const std::set<std::string> kGermanTransfer{
    "\xDC"
    "bertrage die Parameterwerte ins Zielsystem ...",
    "Abbrechen"};

TEST_F(DialogLanguageTest, TheModuleItselfSpeaksGerman) {
    ExpectTexts(kGermanParameter, kGermanTransfer);
}

TEST_F(DialogLanguageTest, TheGermanLibraryAsWell) {
    const LanguageLibrary library(L"de");
    languageLibrary = library.Module();
    ExpectTexts(kGermanParameter, kGermanTransfer);
}

TEST_F(DialogLanguageTest, TheEnglishLibrarySpeaksEnglish) {
    const LanguageLibrary library(L"en");
    languageLibrary = library.Module();
    ExpectTexts({"Memory area: ", "Vector", "Box width: ", "Format: ", "OK", "Cancel"},
                {"Transferring the values to the target system ...", "Cancel"});
}

TEST_F(DialogLanguageTest, ALibraryWithoutDialogsLeavesTheModulesOwn) {
    languageLibrary = GetModuleHandleW(L"kernel32.dll");
    ExpectTexts(kGermanParameter, kGermanTransfer);
}

TEST_F(DialogLanguageTest, ATranslationWithoutTheGridEndsAtOnce) {
    const LanguageLibrary library(std::filesystem::path(ORVELL_LANGUAGE_WITHOUT_GRID));
    ASSERT_NE(FindResourceW(library.Module(), MAKEINTRESOURCEW(ORVELL_DIALOG_PARAMETER),
                            MAKEINTRESOURCEW(5)),  // RT_DIALOG
              nullptr);
    languageLibrary = library.Module();
    OwnedDialogRecord owned(kInt, {1, 0});
    const DialogParameterRecord before = owned.record;
    EXPECT_FALSE(Edit(owned)) << "by itself, with nobody to press a button";
    EXPECT_EQ(std::memcmp(&owned.record, &before, sizeof(before)), 0);
    EXPECT_EQ(*static_cast<const std::uint8_t*>(owned.record.bytes), 1);
    languageLibrary = nullptr;
    EXPECT_TRUE(EditWith(owned, [](const DialogUser& user) {
        user.Press(ParameterDialogOf(user), IDOK);
    })) << "and nothing is left of it";
}

TEST(DialogResourcesTest, FindsNothingElse) {
    const DialogResources resources(GetModuleHandleW(nullptr), nullptr);
    EXPECT_NE(resources.FindDialog(ORVELL_DIALOG_PARAMETER), nullptr);
    EXPECT_NE(resources.FindDialog(ORVELL_DIALOG_TRANSFER), nullptr);
    EXPECT_EQ(resources.FindDialog(131), nullptr);
    EXPECT_EQ(resources.LoadWindowSymbol(133, true).get(), nullptr);
}

TEST(DialogResourcesTest, HasItsSymbolInBothSizes) {
    for (const wchar_t* language : {L"de", L"en"}) {
        const LanguageLibrary library(language);
        const DialogResources resources(nullptr, library.Module());
        for (const bool isLarge : {true, false}) {
            const auto symbol = resources.LoadWindowSymbol(ORVELL_IMAGE_PARAMETER, isLarge);
            ASSERT_NE(symbol.get(), nullptr);
            ICONINFO info{};
            ASSERT_TRUE(GetIconInfo(symbol.get(), &info));
            BITMAP bitmap{};
            GetObjectW(info.hbmColor, sizeof(bitmap), &bitmap);
            EXPECT_EQ(bitmap.bmWidth, GetSystemMetrics(isLarge ? SM_CXICON : SM_CXSMICON));
            DeleteObject(info.hbmColor);
            DeleteObject(info.hbmMask);
        }
    }
}

}  // namespace
}  // namespace orvell::ui
