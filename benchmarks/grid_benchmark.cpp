// Measures the grid of the dialogs on 100,000 rows (environment variable ROWS) of two columns, and
// beside it the system's own list view with the same rows. Needs a display.

#include <windows.h>

#include <commctrl.h>
#include <psapi.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "measurement.h"
#include "ui/grid/grid_control.h"

namespace orvell::benchmarks {
namespace {

constexpr int kWidth = 600;
constexpr int kHeight = 500;
constexpr int kJumps = 200;

int RowCount() {
    const char* const rows = std::getenv("ROWS");
    return rows != nullptr ? std::atoi(rows) : 100'000;
}

std::string Name(int row) {
    return "Struktur.element_" + std::to_string(row / 8) + "[" + std::to_string(row % 8) + "]";
}

std::string Value(int row) {
    return std::to_string(row * 37 % 65536);
}

std::vector<int> FarRows(int rowCount) {
    std::mt19937 random(1);
    std::vector<int> rows(kJumps);
    for (int& row : rows) {
        row = static_cast<int>(random() % static_cast<unsigned>(rowCount));
    }
    return rows;
}

void Draw(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    GdiFlush();
}

HWND MakeWindow(const char* windowClass, DWORD style, HWND parent) {
    const HWND window =
        CreateWindowExA(0, windowClass, "", WS_VISIBLE | style, 0, 0, kWidth, kHeight, parent,
                        nullptr, GetModuleHandleA(nullptr), nullptr);
    Require(window != nullptr, "no window (no display?)");
    return window;
}

/// One of the two controls, for the same measurements.
class Rows {
  public:
    Rows() = default;
    virtual ~Rows() = default;
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;

    [[nodiscard]] virtual std::string Control() const = 0;
    virtual void Fill(int count) = 0;
    virtual void DeleteAll() = 0;
    virtual void Show(int row) = 0;
    [[nodiscard]] virtual std::size_t ReadValues(int count) = 0;
    virtual void ReplaceValues(int count) = 0;
    [[nodiscard]] virtual std::string ValueAt(int row) = 0;
};

class OurRows final : public Rows {
  public:
    explicit OurRows(HWND parent)
        : class_(GetModuleHandleA(nullptr)),
          window_(MakeWindow(ui::GridWindowClass::kName, WS_CHILD, parent)),
          grid_(*ui::CGridCtrl::FromWindow(window_)) {
        ui::GridModel& model = grid_.Model();
        model.SetFixedRowCount(1);
        model.SetColumnCount(2);
        model.SetRowCount(1);
        grid_.SetColumnWidth(0, kWidth / 2 - 10);
        grid_.SetColumnWidth(1, kWidth / 2 - 10);
    }
    ~OurRows() override { DestroyWindow(window_); }

    std::string Control() const override { return "grid"; }

    /// As a dialog fills it: each cell has all that a value needs.
    void Fill(int count) override {
        ui::GridModel& model = grid_.Model();
        for (int i = 0; i < count; ++i) {
            const int row = model.InsertRow(Name(i));
            model.SetItemText(row, 1, Value(i));
            model.SetItemData(row, 0, 700);
            model.SetItemData(row, 1, 2);
            model.SetItemState(row, 0, ui::kGridCellReadOnly);
            for (const int column : {0, 1}) {
                model.SetItemBackColour(row, column, 0x00FFFFFF);
                model.SetItemTextColour(row, column, 0x00000000);
            }
        }
        grid_.AdjustSizes();
        UpdateWindow(window_);
    }
    void DeleteAll() override {
        ui::GridModel& model = grid_.Model();
        while (model.GetRowCount() > 1) {
            model.DeleteRow(model.GetRowCount() - 1);
        }
        grid_.AdjustSizes();
    }
    void Show(int row) override {
        grid_.SetCurrentCell({row + 1, 1});
        Draw(window_);
    }
    std::size_t ReadValues(int count) override {
        std::size_t length = 0;
        for (int row = 1; row <= count; ++row) {
            length += grid_.Model().GetItemText(row, 1).size();
        }
        return length;
    }
    void ReplaceValues(int count) override {
        for (int row = 1; row <= count; ++row) {
            grid_.Model().SetItemText(row, 1, Value(row));
        }
        grid_.Refresh();
        UpdateWindow(window_);
    }
    std::string ValueAt(int row) override { return grid_.Model().GetItemText(row + 1, 1); }

  private:
    ui::GridWindowClass class_;
    HWND window_;
    ui::CGridCtrl& grid_;
};

class ListViewRows final : public Rows {
  public:
    explicit ListViewRows(HWND parent)
        : window_(MakeWindow(WC_LISTVIEWA, WS_CHILD | LVS_REPORT, parent)) {
        for (int column = 0; column < 2; ++column) {
            std::string heading = column == 0 ? "Element" : "Wert";
            LVCOLUMNA description = {};
            description.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
            description.cx = kWidth / 2 - 10;
            description.pszText = heading.data();
            description.iSubItem = column;
            SendMessageA(window_, LVM_INSERTCOLUMNA, static_cast<WPARAM>(column),
                         reinterpret_cast<LPARAM>(&description));
        }
    }
    ~ListViewRows() override { DestroyWindow(window_); }

    std::string Control() const override { return "list view"; }

    void Fill(int count) override {
        SendMessageA(window_, WM_SETREDRAW, FALSE, 0);
        SendMessageA(window_, LVM_SETITEMCOUNT, static_cast<WPARAM>(count), 0);
        for (int row = 0; row < count; ++row) {
            Send(LVM_INSERTITEMA, row, 0, Name(row));
            Send(LVM_SETITEMTEXTA, row, 1, Value(row));
        }
        SendMessageA(window_, WM_SETREDRAW, TRUE, 0);
        UpdateWindow(window_);
    }
    void DeleteAll() override { SendMessageA(window_, LVM_DELETEALLITEMS, 0, 0); }
    void Show(int row) override {
        SendMessageA(window_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), 0);
        Draw(window_);
    }
    std::size_t ReadValues(int count) override {
        std::size_t length = 0;
        for (int row = 0; row < count; ++row) {
            length += ValueAt(row).size();
        }
        return length;
    }
    void ReplaceValues(int count) override {
        SendMessageA(window_, WM_SETREDRAW, FALSE, 0);
        for (int row = 0; row < count; ++row) {
            Send(LVM_SETITEMTEXTA, row, 1, Value(row + 1));
        }
        SendMessageA(window_, WM_SETREDRAW, TRUE, 0);
        UpdateWindow(window_);
    }
    std::string ValueAt(int row) override {
        char text[64] = "";
        LVITEMA item = {};
        item.iSubItem = 1;
        item.pszText = text;
        item.cchTextMax = sizeof text;
        SendMessageA(window_, LVM_GETITEMTEXTA, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&item));
        return text;
    }

  private:
    void Send(UINT message, int row, int column, std::string text) const {
        LVITEMA item = {};
        item.mask = column == 0 ? LVIF_TEXT | LVIF_PARAM : LVIF_TEXT;
        item.iItem = row;
        item.iSubItem = column;
        item.pszText = text.data();
        item.lParam = row;
        SendMessageA(window_, message, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    }

    HWND window_;
};

double Seconds() {
    LARGE_INTEGER frequency = {};
    LARGE_INTEGER now = {};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&now);
    return static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

/// Memory that belongs to the process alone: the system's controls have heaps of their own.
double PrivateBytes() {
    PROCESS_MEMORY_COUNTERS counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.PagefileUsage);
}

/// The first time is what a user waits for, and what memory it takes is not there yet.
void MeasureFirstFill(Rows& rows, int count) {
    const double bytes = PrivateBytes();
    const double start = Seconds();
    rows.Fill(count);
    const double seconds = Seconds() - start;
    PrintFigure("first fill", rows.Control() + ", ns a row", seconds * 1e9 / count);
    PrintFigure("first fill", rows.Control() + ", bytes a row", (PrivateBytes() - bytes) / count);
    Require(rows.ValueAt(count - 1) == Value(count - 1), "the rows do not read back");
}

void MeasureControl(Rows& rows) {
    const int count = RowCount();
    const std::string control = rows.Control();
    const auto measure = [&](std::string_view group, double items, const auto& pass) {
        Measure({.group = group, .name = control, .items = items}, pass);
    };
    const auto perRow = static_cast<double>(count);
    MeasureFirstFill(rows, count);
    measure("delete all and fill", perRow, [&] {
        rows.DeleteAll();
        rows.Fill(count);
    });
    measure("read values", perRow,
            [&] { Require(rows.ReadValues(count) > 0, "nothing was read"); });
    measure("replace values", perRow, [&] { rows.ReplaceValues(count); });
    const std::vector<int> jumps = FarRows(count);
    measure("far scroll and paint", kJumps, [&] {
        for (const int row : jumps) {
            rows.Show(row);
        }
    });
}

}  // namespace
}  // namespace orvell::benchmarks

int main() {
    using namespace orvell::benchmarks;
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    const HWND frame = MakeWindow("STATIC", WS_OVERLAPPEDWINDOW, nullptr);
    {
        OurRows grid(frame);
        MeasureControl(grid);
    }
    {
        ListViewRows list(frame);
        MeasureControl(list);
    }
    DestroyWindow(frame);
}
