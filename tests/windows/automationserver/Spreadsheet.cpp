#include "Spreadsheet.h"

#include "Application.h"
#include "Classes.h"
#include "Text.h"
#include "Workbook.h"

#include <vector>

namespace {

constexpr int LastRow = 1048576;
constexpr int LastColumn = 16384;

class Spreadsheet : public Application {
  public:
    explicit Spreadsheet(Journal& journal);

    void OpenWorkbook(const std::wstring& path);
    void AddWorkbook() { workbooks_.emplace_back(); }
    /// Throws MemberFailure when no workbook is open.
    Workbook& Active();

  protected:
    bool HasUnsavedChanges() const override;

  private:
    void AddCells();

    std::vector<Workbook> workbooks_;
};

/// What the objects below the application have in common: they keep it.
class Part : public LateBound {
  public:
    Part(Spreadsheet& application, Journal& journal, const std::wstring& name)
        : LateBound(journal, name), Application_(application) {
        Application_.AddRef();
    }
    ~Part() override { Application_.Release(); }

  protected:
    Spreadsheet& Application_;
};

class WorkbooksPart : public Part {
  public:
    WorkbooksPart(Spreadsheet& application, Journal& journal) : Part(application, journal, L"Workbooks") {
        AddMethod(L"Open", {L"FILENAME"},
                  [this](const Arguments& arguments) { Application_.OpenWorkbook(arguments[0].AsText()); });
        AddMethod(L"Add", {}, [this](const Arguments&) { Application_.AddWorkbook(); });
    }
};

class ActiveWorkbookPart : public Part {
  public:
    ActiveWorkbookPart(Spreadsheet& application, Journal& journal) : Part(application, journal, L"ActiveWorkbook") {
        AddMethod(L"SaveAs", {L"FILENAME"},
                  [this](const Arguments& arguments) { Application_.Active().SaveAs(arguments[0].AsText()); });
        AddMethod(L"Save", {}, [this](const Arguments&) { Application_.Active().Save(); });
    }
};

std::pair<int, int> PlaceOf(const Arguments& arguments) {
    const std::pair<int, int> place(arguments[0].AsInteger(), arguments[1].AsInteger());
    if (place.first < 1 || place.first > LastRow || place.second < 1 || place.second > LastColumn)
        throw MemberFailure{1004, L"Application-defined or object-defined error"};
    return place;
}

std::wstring SetCell(Spreadsheet& application, std::pair<int, int> place, const Variant& value) {
    const Cell cell = Cell::Given(value);
    application.Active().Set(place.first, place.second, cell);
    return cell.Described();
}

class CellPart : public Part {
  public:
    CellPart(Spreadsheet& application, Journal& journal, std::pair<int, int> place)
        : Part(application, journal,
               L"Cells(" + std::to_wstring(place.first) + L',' + std::to_wstring(place.second) + L')') {
        Member value;
        value.Name = L"Value";
        value.IsDefault = true;
        value.Get = [this, place](const Arguments&) {
            const Cell cell = Application_.Active().Get(place.first, place.second);
            return Answer(cell.Value(), cell.Described());
        };
        value.Put = [this, place](const Arguments&, const Variant& given) {
            return SetCell(Application_, place, given);
        };
        Add(std::move(value));
    }
};

Spreadsheet::Spreadsheet(Journal& journal) : Application(journal, SpreadsheetClass) {
    AddObject(L"Workbooks", [this] { return new WorkbooksPart(*this, TheJournal()); });
    AddObject(L"ActiveWorkbook", [this] {
        Active();
        return new ActiveWorkbookPart(*this, TheJournal());
    });
    AddCells();
}

void Spreadsheet::AddCells() {
    Member cells;
    cells.Name = L"Cells";
    cells.Parameters = {L"RowIndex", L"ColumnIndex"};
    cells.Get = [this](const Arguments& arguments) {
        Active();
        return Answer(Variant::Object(new CellPart(*this, TheJournal(), PlaceOf(arguments))));
    };
    cells.Put = [this](const Arguments& arguments, const Variant& value) {
        return SetCell(*this, PlaceOf(arguments), value);
    };
    Add(std::move(cells));
}

void Spreadsheet::OpenWorkbook(const std::wstring& path) {
    for (std::size_t i = 0; i < workbooks_.size(); ++i)
        if (SameName(workbooks_[i].Path(), path)) {
            std::swap(workbooks_[i], workbooks_.back());
            return;
        }
    Workbook opened;
    opened.Open(path);
    workbooks_.push_back(std::move(opened));
}

Workbook& Spreadsheet::Active() {
    if (workbooks_.empty())
        throw MemberFailure{91, L"Object variable or With block variable not set"};
    return workbooks_.back();
}

bool Spreadsheet::HasUnsavedChanges() const {
    for (const Workbook& workbook : workbooks_)
        if (workbook.Changed())
            return true;
    return false;
}

} // namespace

Application* MakeSpreadsheet(Journal& journal) { return new Spreadsheet(journal); }
