// The schedule of an entry on a terminal. Tab and Shift+Tab move the focus, the blank ticks a box or takes
// the next entry of a list, dates and times are typed; F2 checks and saves, F10 leaves without.
#define NCURSES_NOMACROS
#include <ncurses.h>

#include <algorithm>
#include <iostream>
#include <vector>

#include "NolSchedCtls/records/entry_columns.h"
#include "NolSchedCtls/services/memory_services.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/toolkit/fields.h"

using namespace NolSchedCtls;

namespace {

// What stands in a field, by its kind.
std::string Shown(const ViewField& field) { return field.PlainCaption(); }
std::string Shown(const CheckBox& box) { return (box.Value() != 0 ? "[x] " : "[ ] ") + box.PlainCaption(); }
std::string Shown(const DropDownList& list) { return list.Text(); }
std::string Shown(const TextBox& box) { return box.Text(); }
std::string Shown(const TypedField& field) { return field.Text(); }

// Draws the fields in their order, and turns keys into what a user does.
class Screen {
  public:
    // [terminal] Draws anew what has changed, and takes what is typed as a whole.
    explicit Screen(UserControl& tabA) : tab(tabA) {
        changed = tab.FieldChanged.Connect([this](ViewField&, FieldPart) { isDrawn = false; });
        moved = tab.FocusMoved.Connect([this](ViewField&) { isDrawn = false; });
        Place(nullptr);
        Turn(0);
    }

    // In the order of the page: what stands on the tab itself, each frame with what it holds.
    void Place(const ViewField* frame) {
        for (const ViewField* const field : tab.Fields()) {
            if (field->Container() != frame) continue;
            page.push_back(field);
            Place(field);
        }
    }

    void Press(int key) {
        if (key == KEY_RESIZE) isDrawn = false;
        if (key == '\t' || key == KEY_BTAB) return Turn(key == '\t' ? 1 : -1);
        ViewField* const field = tab.FocusedField();
        if (field != nullptr) VisitField(*field, [&](auto& kind) { Act(kind, key); });
    }

    // A date or a time is taken as a whole, when the user goes on; a refusal is the field's to tell.
    void Commit() {
        if (TypedField* const field = std::exchange(typedInto, nullptr)) field->TypeText(typed);
    }

    void Draw(const std::string& told) {
        if (std::exchange(isDrawn, true)) return;
        erase();
        const ViewField* before = nullptr;
        int row = 0, column = 0;
        for (const ViewField* const field : page) {
            if (!field->IsShown()) continue;
            if (before != nullptr && !IsBeside(*before, *field)) addch('\n');
            if (field->HasFocus()) getyx(stdscr, row, column);
            Put(*field);
            before = field;
        }
        const ViewField* const refused = tab.RefusedField();
        mvaddstr(LINES - 1, 0, (refused != nullptr ? refused->Refusal() : told).c_str());
        move(row, column);
        refresh();
    }
    // [terminal]

  private:
    // Goes on by so many tab stops.
    void Turn(int by) {
        Commit();
        const auto stops = tab.TabStops();
        const auto place = std::find(stops.begin(), stops.end(), tab.FocusedField()) - stops.begin();
        const auto count = std::ssize(stops);
        if (count > 0) stops[static_cast<std::size_t>((place % count + by + count) % count)]->SetFocus();
    }

    // A label stands with its field; what has a place in its frame follows in one row.
    bool IsBeside(const ViewField& before, const ViewField& field) const {
        return before.Container() == field.Container() && (tab.LabelOf(field) == &before || field.Left() > 0);
    }

    void Put(const ViewField& field) const {
        std::string text = VisitField(field, [](const auto& kind) { return Shown(kind); });
        if (&field == typedInto) text = typed;
        if (field.IsTabStop()) text = field.IsUsable() ? "<" + text + ">" : "(" + text + ")";
        addstr((text + " ").c_str());
    }

    static void Act(ViewField& /*others*/, int /*key*/) {}
    static void Act(CheckBox& box, int key) { key == ' ' && box.Click(); }
    static void Act(DropDownList& list, int key) {
        if (key == ' ') list.PickIndex((list.ListIndex() + 1) % static_cast<int>(list.Entries().size()));
    }
    // The first letter takes the place of what stood there; the backspace shortens it.
    void Act(TypedField& field, int key) {
        const bool isLetter = key >= ' ' && key <= '~';
        if (!isLetter && key != KEY_BACKSPACE) return;
        if (std::exchange(typedInto, &field) != &field) {
            if (auto* const date = FieldAs<SSDateCombo>(field)) date->BeginEdit();
            typed = isLetter ? std::string() : field.Text();
        }
        if (isLetter)
            typed += static_cast<char>(key);
        else if (!typed.empty())
            typed.pop_back();
        isDrawn = false;
    }

    UserControl& tab;
    std::vector<const ViewField*> page;
    bool isDrawn = false;
    TypedField* typedInto = nullptr;
    std::string typed;
    ScopedConnection changed, moved;
};

void Tell(std::string_view name, const auto& value) { std::cout << name << " = " << value << '\n'; }
void Tell(std::string_view name, DateTime moment) { std::cout << name << " = " << IsoText(moment) << '\n'; }

}  // namespace

int main() {
    const auto memory = InstallMemoryServices();
    const auto record = std::make_shared<CNolSchedData>();
    record->InitNew(std::make_shared<CaddisScenarioType>(), false, 7, "Nightly");
    XNolScheduleTab tab;
    tab.LoadData(record, "", nullptr);
    initscr();
    cbreak();
    noecho();
    keypad(stdscr, TRUE);
    int key = 0;
    for (Screen screen(tab); key != KEY_F(10);) {
        screen.Draw(memory->messages.empty() ? std::string() : memory->messages.back().sText);
        key = getch();
        if (key != KEY_F(2)) {
            screen.Press(key);
            continue;
        }
        screen.Commit();
        if (tab.IsTabValid("Nightly")) break;
    }
    endwin();
    if (key == KEY_F(2)) {
        tab.SaveData();
        for (const EntryColumn& entryColumn : entryColumns)
            std::visit([&](const auto& column) { Tell(column.sName, (*record).*column.pProperty); },
                       entryColumn);
    }
    InstallServices({});
}
