#include "NolSchedCtls/library/c_columns.h"

#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/library/c_calls.h"
#include "NolSchedCtls/records/entry_columns.h"
#include "NolSchedCtls/records/study_kinds.h"

namespace NolSchedCtls::inline v1::C {

namespace {

template <class Class>
struct TextColumnOf {
    std::string_view name;
    std::variant<std::int32_t Class::*, std::string Class::*, DateTime Class::*, bool Class::*> property;
};

using RecordColumn = TextColumnOf<CNolSchedData>;

constexpr auto recordColumns = [] {
    std::array<RecordColumn, entryColumns.size() + studyKinds.size() + 1> columns;
    auto next = columns.begin();
    for (const EntryColumn& entryColumn : entryColumns)
        *next++ = std::visit(
            [](const auto& column) {
                return RecordColumn{column.sName, column.pProperty};
            },
            entryColumn);
    for (const StudyKind& kind : studyKinds) *next++ = {kind.sFlag, kind.pFlag};
    *next = {"IsNew", &CNolSchedData::IsNew};
    return columns;
}();

constexpr std::array overrideColumns = {
    TextColumnOf<CNolOverride>{"NOL_OverrideId", &CNolOverride::NOL_OverrideId},
    TextColumnOf<CNolOverride>{"Type", &CNolOverride::OverrideType},
    TextColumnOf<CNolOverride>{"ScenarioId", &CNolOverride::ScenarioId},
    TextColumnOf<CNolOverride>{"Duration", &CNolOverride::Duration},
    TextColumnOf<CNolOverride>{"Polling_Interval", &CNolOverride::Polling_Interval},
    TextColumnOf<CNolOverride>{"Retrieve_Delay", &CNolOverride::Retrieve_Delay},
    TextColumnOf<CNolOverride>{"ClearLog", &CNolOverride::ClearLog},
};

std::size_t IndexIn(const auto& columns, std::string_view name) {
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (EqualKeys(columns[i].name, name)) return i;
    throw CallError(NOLSCHED_BAD_NAME, "There is no column " + Quoted(name) + ".");
}

std::string TextOf(std::int32_t number) { return std::to_string(number); }
std::string TextOf(const std::string& text) { return text; }
std::string TextOf(DateTime date) { return IsoText(date); }
std::string TextOf(bool isSo) { return isSo ? "Y" : "N"; }

void Take(std::int32_t& number, const std::string& text) {
    const auto read = ParseWhole(text);
    if (!read) throw ValueError("The text " + Quoted(text) + " is no 32-bit number.");
    number = *read;
}

void Take(std::string& property, const std::string& text) { property = text; }
void Take(DateTime& date, const std::string& text) { date = ParseIso(text); }

void Take(bool& isSo, const std::string& text) {
    if (text != "Y" && text != "N") throw ValueError("The text " + Quoted(text) + " is neither Y nor N.");
    isSo = text == "Y";
}

std::string Read(const auto& object, const auto& column) {
    return std::visit([&](const auto property) { return TextOf(object.*property); }, column.property);
}

}  // namespace

std::string_view RecordColumnName(std::size_t index) {
    return index < recordColumns.size() ? recordColumns[index].name : std::string_view();
}

std::size_t RecordColumnIndex(std::string_view name) { return IndexIn(recordColumns, name); }
std::size_t OverrideColumnIndex(std::string_view name) { return IndexIn(overrideColumns, name); }

void WriteColumn(CNolSchedData& record, std::size_t column, const char* text) {
    const auto write = [&](const auto property) {
        if (text == nullptr)
            record.*property = {};
        else
            Take(record.*property, Text(text, "a column's text"));
    };
    Explained<ValueError>([&] { std::visit(write, recordColumns[column].property); },
                          [&] { return std::string(recordColumns[column].name) + ": "; });
}

std::string ReadColumn(const CNolSchedData& record, std::string_view name) {
    if (EqualKeys(name, "DBFirstDateTime")) return TextOf(record.DBFirstDateTime().Value);
    if (EqualKeys(name, "DBFinalDateTime")) return TextOf(record.DBFinalDateTime().Value);
    return Read(record, recordColumns[RecordColumnIndex(name)]);
}

std::string ReadColumn(const CNolOverride& override, std::size_t column) {
    return Read(override, overrideColumns[column]);
}

}  // namespace NolSchedCtls::inline v1::C
