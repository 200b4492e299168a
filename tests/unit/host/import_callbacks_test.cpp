// What the host's message page may do while an import is reported: throw, or call the module.

#include <functional>
#include <stdexcept>

#include "management_fixture.h"
#include "support/short_memory.h"
#include "unit/memstruct/temporary_folder.h"

namespace orvell::host {
namespace {

/// Every second parameter is missing in the list, so that every second line is reported.
constexpr int kImported = 10;
constexpr std::size_t kReportCalls = 2 * (kImported / 2 + 2);  // a page and a line each

std::size_t reportCalls = 0;
std::vector<std::string> reportLines;
std::function<void()> onReportCall;

std::int32_t ORVELL_CALL LookUpReportPage(const char*) {
    ++reportCalls;
    onReportCall();
    return 1;
}

std::int32_t ORVELL_CALL AppendReportLine(std::int32_t, const char* line, std::uint32_t,
                                          std::int32_t) {
    ++reportCalls;
    reportLines.emplace_back(line);
    onReportCall();
    return 1;
}

class ImportCallbacksTest : public ManagementTest {
  protected:
    ImportCallbacksTest() {
        const HostExportTable callbacks{sizeof(callbacks), LookUpReportPage, AppendReportLine,
                                        nullptr, nullptr};
        TheModule().callbacks.Install(&callbacks);
        std::string file;
        for (int number = 1; number <= kImported; ++number) {
            file +=
                "PW" + std::to_string(number) + ";name;" + std::to_string(100 + number) + ";;\n";
        }
        test::WriteFile("LIST.CSV", file);
        BuildKinds();
    }

    ~ImportCallbacksTest() override { onReportCall = nullptr; }

    static void FillList() {
        management::ClearList();
        for (int number = 2; number <= kImported; number += 2) {
            management::SetValueFromText(("PW" + std::to_string(number)).c_str(), "1");
        }
    }

    /// Of the parameters that the list had, how many have their values from the file.
    static int ImportedCount() {
        int count = 0;
        for (int number = 2; number <= kImported; number += 2) {
            count += TextOf("PW" + std::to_string(number)) == std::to_string(100 + number) ? 1 : 0;
        }
        return count;
    }

    /// The report names the file, and its last line counts the warnings between.
    static void ExpectClosedReport() {
        ASSERT_GE(reportLines.size(), 2U);
        EXPECT_EQ(reportLines.front(), "Importiere LIST.CSV ...");
        const std::size_t warnings = reportLines.size() - 2;
        EXPECT_EQ(reportLines.back(), warnings == 0 ? std::string("Keine Warnungen")
                                                    : std::to_string(warnings) + " Warnungen");
    }

    /// Imports while `action` runs in call 1, 2, 3, ... of the host, until there is none such;
    /// `check` after each. Returns how many there were.
    template <typename Action, typename Check>
    std::size_t InEveryReportCall(const Action& action, const Check& check) {
        ImportWithAction(1, action);  // has all texts loaded
        check();
        const std::size_t held = HeldWithEmptyList();
        for (std::size_t chosen = 1;; ++chosen) {
            ImportWithAction(chosen, action);
            if (reportCalls < chosen) {
                return chosen - 1;
            }
            check();
            EXPECT_EQ(HeldWithEmptyList(), held) << chosen;
        }
    }

    template <typename Action>
    static void ImportWithAction(std::size_t chosen, const Action& action) {
        FillList();
        reportCalls = 0;
        reportLines = {};
        onReportCall = [&] {
            if (reportCalls == chosen) {
                action();
            }
        };
        management::ImportIntoList(nullptr, "LIST.CSV");
        onReportCall = nullptr;
    }

    /// What the module holds, the list and what the tests have noted put aside.
    std::size_t HeldWithEmptyList() {
        management::ClearList();
        std::exchange(reportLines, {});
        TakeMessages();
        return test::HeldBlocks();
    }

    test::TemporaryFolder folder;
};

TEST_F(ImportCallbacksTest, AReportThatThrowsDoesNotEndTheImport) {
    const std::size_t failures =
        InEveryReportCall([] { throw std::runtime_error("of the host's"); },
                          [] {
                              EXPECT_EQ(ImportedCount(), kImported / 2);
                              EXPECT_EQ(reportCalls, kReportCalls);
                          });
    EXPECT_EQ(failures, kReportCalls);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ImportCallbacksTest, AReportThatAlwaysThrowsIsNone) {
    FillList();
    reportCalls = 0;
    onReportCall = [] { throw 7; };
    management::ImportIntoList(nullptr, "LIST.CSV");
    EXPECT_EQ(reportCalls, kReportCalls);
    EXPECT_EQ(ImportedCount(), kImported / 2);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ImportCallbacksTest, TheListMayBeChangedWhileItIsImported) {
    const std::function<void()> actions[] = {
        [] { management::ClearList(); },
        [] { management::LoadList(nullptr); },
        [] { management::ImportNewList(nullptr, "GONE.SIL"); },
        [] {
            management::BeginUpdate();
            management::EndUpdate();
        },
    };
    for (const auto& action : actions) {
        const std::size_t inEach = InEveryReportCall(action, [] {
            EXPECT_EQ(ImportedCount(), 0) << "an entry has come back";
            ExpectClosedReport();
        });
        EXPECT_GE(inEach, kReportCalls);
    }
}

TEST_F(ImportCallbacksTest, AnImportMayRunInsideAnother) {
    bool isInside = false;
    const auto importAgain = [&isInside] {
        if (!isInside) {
            isInside = true;
            management::ImportIntoList(nullptr, "LIST.CSV");
            isInside = false;
        }
    };
    const std::size_t nested =
        InEveryReportCall(importAgain, [] { EXPECT_EQ(ImportedCount(), kImported / 2); });
    EXPECT_GE(nested, kReportCalls);
}

TEST_F(ImportCallbacksTest, TheCallbacksMayBeTakenAwayInAnyCall) {
    const HostExportTable callbacks{sizeof(callbacks), LookUpReportPage, AppendReportLine, nullptr,
                                    nullptr};
    const std::size_t removals = InEveryReportCall([] { TheModule().callbacks.Install(nullptr); },
                                                   [&] {
                                                       EXPECT_EQ(ImportedCount(), kImported / 2);
                                                       TheModule().callbacks.Install(&callbacks);
                                                   });
    EXPECT_EQ(removals, kReportCalls);
}

}  // namespace
}  // namespace orvell::host
