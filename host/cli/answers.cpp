#include "host/cli/answers.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <sstream>
#include <stdexcept>

#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/records/entry_columns.h"
#include "NolSchedCtls/records/study_kinds.h"
#include "host/entries/arguments.h"
#include "host/entries/entry_check.h"
#include "host/entries/process.h"
#include "host/entries/visible_text.h"

namespace NolSchedCtls {

namespace {

using Write = void (*)(std::ostream&, const Json&);

std::string TextOf(const Json& value) {
    if (value.is_null()) return "-";
    return value.is_string() ? Visible(value.get<std::string>()) : Dumped(value);
}

std::string InQuotes(const Json& value) {
    return value.is_string() ? '"' + TextOf(value) + '"' : TextOf(value);
}

std::string WithoutEndBlanks(const std::string& row) { return row.substr(0, row.find_last_not_of(' ') + 1); }

std::string CellOf(const Json& value, std::size_t width) { return Padded(TextOf(value), width); }

void WriteMessage(std::ostream& stream, const Json& answer) {
    const Json& message = answer.at("message");
    const std::string head =
        TextOf(message.at("title")) + (message.at("flags") == 48 ? " (!): " : " (stop): ");
    stream << VisibleLines(head, message.at("text").get<std::string>());
}

// `offers "Once", "Hourly"`, `offers 1 to 24`.
std::string OffersText(const Json& offers) {
    if (offers.empty()) return "offers nothing";
    const auto isCounted = [number = 1](const Json& offer) mutable {
        return offer == std::to_string(number++);
    };
    if (offers.size() > 2 && std::ranges::all_of(offers, isCounted))
        return "offers 1 to " + std::to_string(offers.size());
    return "offers " + Joined(offers, InQuotes);
}

// "  name              kind        details", hidden and disabled fields marked.
void WriteField(std::ostream& stream, const Json& field) {
    stream << "  " << CellOf(field.at("name"), 20) << CellOf(field.at("kind"), 10);
    constexpr std::array apart = {"name", "kind", "visible", "enabled", "entries"};
    for (const auto& [key, value] : field.items())
        if (std::ranges::find(apart, key) == apart.end()) stream << ' ' << key << '=' << InQuotes(value);
    if (field.contains("entries")) stream << ' ' << OffersText(field.at("entries"));
    if (field.at("visible") == false) stream << " hidden";
    if (field.at("enabled") == false) stream << " disabled";
    stream << '\n';
}

void WriteLook(std::ostream& stream, const Json& answer) {
    stream << TextOf(answer.at("look")) << '\n';
    for (const auto& field : answer.at("fields")) WriteField(stream, field);
}

// `schedule.cbExcludeDay(3)   check box  "Wednesday"  while cboPeriod is Hourly or Daily`.
void WriteRule(std::ostream& stream, const Json& answer) {
    const Json& field = answer.at("field");
    const Json& condition = field.at("while");
    std::string told =
        Padded(TextOf(field.at("tab")) + '.' + TextOf(field.at("name")), 27) + CellOf(field.at("kind"), 9);
    if (field.at("caption") != "") told += "  " + InQuotes(field.at("caption"));
    if (!field.at("offers").empty()) told += "  " + OffersText(field.at("offers"));
    if (!condition.is_null()) told += (condition == "never" ? "  " : "  while ") + TextOf(condition);
    stream << WithoutEndBlanks(told) << '\n';
}

void WriteRecord(std::ostream& stream, const Json& answer) {
    for (const auto& [key, value] : answer.at("record").items())
        stream << Padded(key, 20) << TextOf(value) << '\n';
    for (const char* key : {"sentence", "description", "next", "state"})
        if (answer.contains(key)) stream << Padded(key, 20) << TextOf(answer.at(key)) << '\n';
    for (const auto& row : answer.at("overrides")) {
        stream << "override";
        for (const auto& [key, value] : row.items()) stream << ' ' << key << '=' << InQuotes(value);
        stream << '\n';
    }
}

void WriteValid(std::ostream& stream, const Json& answer) {
    if (answer.at("valid") == true) {
        stream << "valid\n";
        return;
    }
    stream << "not valid: " << TextOf(answer.at("tab"));
    if (!answer.at("focus").is_null()) stream << ", the focus is on " << TextOf(answer.at("focus"));
    stream << '\n';
}

void WriteSaved(std::ostream& stream, const Json& answer) {
    if (answer.at("saved") == true)
        stream << (answer.contains("unchanged") ? "unchanged " : "saved ") << TextOf(answer.at("Id")) << '\n';
    else
        stream << "not saved\n";
}

std::string MomentOf(const Json& value) {
    return value.is_null() ? "-" : MomentText(ParseIso(value.get<std::string>()));
}

void WriteRun(std::ostream& stream, const Json& answer) {
    const Json& run = answer.at("run");
    stream << MomentOf(run.at("at")) << "  " << CellOf(run.at("Id"), 5) << ' ' << TextOf(run.at("EditorName"))
           << '\n';
}

// "3     Nightly: Never runs (Friday is excluded)", and "left out: " before it.
template <const char* key>
void WriteState(std::ostream& stream, const Json& answer) {
    const Json& entry = answer.at(key);
    const std::string reason = TextOf(entry.at("reason"));
    if (std::string_view(key) == "left out") stream << "left out: ";
    stream << CellOf(entry.at("Id"), 5) << ' ' << TextOf(entry.at("EditorName")) << ": "
           << TextOf(entry.at("state")) << (reason.empty() ? "" : " (" + reason + ")") << '\n';
}

void WriteHoliday(std::ostream& stream, const Json& answer) {
    const Json& holiday = answer.at("holiday");
    stream << TextOf(holiday.at("date")) << "  " << TextOf(holiday.at("name")) << '\n';
}

void WriteImported(std::ostream& stream, const Json& answer) {
    const Json& imported = answer.at("imported");
    stream << "holidays: " << imported.at("new") << " new, " << imported.at("known")
           << " known; events passed over: " << imported.at("passedOver") << '\n';
}

// As it stands, line ends and all: it is a file.
template <const char* key>
void WriteFile(std::ostream& stream, const Json& answer) {
    stream << answer.at(key).get_ref<const std::string&>();
}

// "saved 12: period Daily -> Weekly, hom off -> on", "would save 12: ...".
void WriteSet(std::ostream& stream, const Json& answer) {
    const Json& told = answer.at("set");
    std::vector<std::string> changes;
    for (const auto& [word, change] : told.at("changes").items())
        changes.push_back(word + ' ' + TextOf(change.at("from")) + " -> " + TextOf(change.at("to")));
    const Json& id = told.at("Id");
    stream << TextOf(told.at("act")) << ' '
           << (id.is_null() ? '"' + TextOf(told.at("EditorName")) + '"' : TextOf(id))
           << (changes.empty() ? "" : ": ") << Joined(changes) << '\n';
}

void WriteAdded(std::ostream& stream, const Json& answer) {
    const Json& added = answer.at("added");
    stream << "added " << TextOf(added.at("Type")) << " \"" << TextOf(added.at("Name")) << "\"\n";
}

void WriteApplied(std::ostream& stream, const Json& answer) {
    const Json& applied = answer.at("applied");
    stream << "created " << applied.at("created") << ", changed " << applied.at("changed") << ", unchanged "
           << applied.at("unchanged") << '\n';
}

void WriteDocument(std::ostream& stream, const Json& answer) {
    const Json& document = answer.at("document");
    stream << CellOf(document.at("Id"), 6) << CellOf(document.at("Type"), 12) << TextOf(document.at("Name"))
           << '\n';
}

void WriteWatch(std::ostream& stream, const Json& answer) {
    const Json& change = answer.at("watch");
    stream << TextOf(change.at("act")) << ' ' << TextOf(change.at("Id")) << '\n';
}

// "key: value" for an answer of one value.
template <const char* key>
void WriteValue(std::ostream& stream, const Json& answer) {
    stream << key << ": " << TextOf(answer.at(key)) << '\n';
}

constexpr char beep[] = "beep";
constexpr char made[] = "made";
constexpr char calendar[] = "calendar";
constexpr char plan[] = "plan";
constexpr char shown[] = "shown";
constexpr char changed[] = "changed";
constexpr char deleted[] = "deleted";
constexpr char check[] = "check";
constexpr char leftOut[] = "left out";
constexpr std::string_view entry = "entry";

// As compilers tell it: "regroup.nol:3: entry 12 "Site 12": ...".
void WriteError(std::ostream& stream, const Json& answer) {
    const Json& told = answer.at("error");
    const auto isKnown = [&told](const char* key) { return told.contains(key); };
    if (isKnown("file")) stream << TextOf(told.at("file")) << ':';
    if (isKnown("line")) stream << told.at("line") << ':';
    stream << (isKnown("file") ? " " : "error: ");
    if (isKnown("Id")) stream << "entry " << told.at("Id") << ' ';
    if (isKnown("EditorName"))
        stream << (isKnown("Id") ? "" : "new entry ") << '"' << TextOf(told.at("EditorName")) << "\": ";
    stream << TextOf(told.at("text")) << '\n';
}

void WriteCommand(std::ostream& stream, const Json& answer) {
    const Json& command = answer.at("command");
    stream << Padded(TextOf(command.at("verb")) + ' ' + TextOf(command.at("takes")), 29)
           << TextOf(command.at("text")) << '\n';
}

void WriteFailure(std::ostream& stream, const Json& answer) {
    stream << "failure: " << TextOf(answer.at("failure").at("text")) << '\n';
}

// Where an answer goes, as text and as JSON. A file is the same in both.
enum class Stream { Out, ErrAsText, Err, File };

struct AnswerKind {
    std::string_view key;
    Stream stream;
    Write write = nullptr;  // nothing for what is told as text by TellRow
};

// "saved 12: period Daily -> Weekly (dry run)"
void WriteMarked(std::ostream& stream, Write write, const Json& answer) {
    std::ostringstream row;
    write(row, answer);
    stream << std::string_view(row.view()).substr(0, row.view().size() - 1) << " (dry run)\n";
}

struct ToJson {
    Json operator()(std::monostate) const { return nullptr; }
    template <class T>
    Json operator()(const T& value) const {
        return value;
    }
};

Json DateJson(DateTime dateTime) { return dateTime == 0 ? Json(nullptr) : Json(IsoText(dateTime)); }

struct PropertyJson {
    const CNolSchedData& record;

    template <class T>
    Json operator()(const Column<T>& column) const {
        return record.*column.pProperty;
    }
    Json operator()(const Column<DateTime>& column) const { return DateJson(record.*column.pProperty); }
};

Json OverrideJson(const CNolOverride& item) {
    return {{"NOL_OverrideId", item.NOL_OverrideId},
            {"Type", item.OverrideType},
            {"ScenarioId", item.ScenarioId},
            {"Duration", item.Duration},
            {"Polling_Interval", item.Polling_Interval},
            {"Retrieve_Delay", item.Retrieve_Delay},
            {"ClearLog", item.ClearLog}};
}

}  // namespace

std::string Dumped(const Json& value) {
    return WithoutControls(value.dump(-1, ' ', false, Json::error_handler_t::replace));
}

void Answers::Tell(const Json& answer) {
    using enum Stream;
    static constexpr std::array answerKinds = {
        AnswerKind{"message", ErrAsText, WriteMessage},
        AnswerKind{made, ErrAsText, WriteValue<made>},
        AnswerKind{beep, ErrAsText, WriteValue<beep>},
        AnswerKind{shown, ErrAsText, WriteValue<shown>},
        AnswerKind{"failure", Err, WriteFailure},
        AnswerKind{"error", Err, WriteError},
        AnswerKind{"look", Out, WriteLook},
        AnswerKind{"record", Out, WriteRecord},
        AnswerKind{changed, Out, WriteValue<changed>},
        AnswerKind{"valid", Out, WriteValid},
        AnswerKind{"saved", Out, WriteSaved},
        AnswerKind{"field", Out, WriteRule},
        AnswerKind{"command", Out, WriteCommand},
        AnswerKind{entry, Out},
        AnswerKind{"document", Out, WriteDocument},
        AnswerKind{deleted, Out, WriteValue<deleted>},
        AnswerKind{"watch", Out, WriteWatch},
        AnswerKind{"run", Out, WriteRun},
        AnswerKind{check, Out, WriteState<check>},
        AnswerKind{calendar, Out, WriteFile<calendar>},
        AnswerKind{plan, File, WriteFile<plan>},
        AnswerKind{"set", Out, WriteSet},
        AnswerKind{"applied", Out, WriteApplied},
        AnswerKind{"added", Out, WriteAdded},
        AnswerKind{leftOut, ErrAsText, WriteState<leftOut>},
        AnswerKind{"holiday", Out, WriteHoliday},
        AnswerKind{"imported", Out, WriteImported},
    };
    const auto& key = answer.begin().key();
    const auto* const kind = std::ranges::find(answerKinds, key, &AnswerKind::key);
    if (kind == answerKinds.end()) throw std::logic_error("There is no text for the answer " + key + ".");
    const bool isToErr = kind->stream == Err || (kind->stream == ErrAsText && !isJson);
    std::ostream& stream = isToErr ? err : out;
    if (isToErr) out.flush();  // rows that go before it
    if (isJson && kind->stream != File)
        stream << Dumped(answer) << '\n';
    else if (answer.contains("dryRun"))
        WriteMarked(stream, kind->write, answer);
    else
        kind->write(stream, answer);
    if (key != entry || !out) Flush(stream, isToErr ? "standard error" : "standard output");
}

void Answers::TellRow(std::span<const Cell> cells) {
    std::string row;
    for (const auto& [text, columns] : cells) row += Padded(Visible(text), columns) + ' ';
    row.resize(row.find_last_not_of(' ') + 1);
    row += '\n';
    out << (width == 0 ? row : Cut(row, width));
    if (!out) EndRows();
}

void Answers::EndRows() { Flush(out, "standard output"); }

void Answers::TellFailure(const std::exception& failure) {
    Json told;
    if (dynamic_cast<const StoreError*>(&failure) != nullptr) told["store"] = store;
    told["text"] = failure.what();
    Tell({{"failure", told}});
}

bool Answers::IsLost() const { return !err; }

Json JsonOf(const LintelValue& value) { return std::visit(ToJson{}, value); }

Json JsonOf(const UsageError& error) {
    Json told;
    if (const auto& place = error.place) {
        if (!place->file.empty()) told["file"] = place->file;
        if (place->line > 0) told["line"] = place->line;
        if (place->id != 0) told["Id"] = place->id;
        told["EditorName"] = place->name;
    }
    if (const auto& refusal = error.refusal)
        told.update({{"field", refusal->field}, {"given", refusal->given}, {"offers", refusal->offers}});
    told["text"] = error.what();
    return {{"error", told}};
}

Json JsonOf(const CheckedEntry& entry) {
    return {{"Id", entry.id}, {"EditorName", entry.name}, {"state", entry.state}, {"reason", entry.reason}};
}

Json PropertiesOf(const CNolSchedData& record) {
    Json properties;
    for (const auto& column : entryColumns)
        properties[std::string(NameOf(column))] = std::visit(PropertyJson{record}, column);
    return properties;
}

Json JsonOf(const CNolSchedData& record) {
    Json properties = PropertiesOf(record);
    properties["IsNew"] = record.IsNew;
    for (const StudyKind& kind : studyKinds) properties[std::string(kind.sFlag)] = record.*kind.pFlag;
    Json overrides = Json::array();
    for (const auto& [key, item] : record.Overrides()) overrides.push_back(OverrideJson(*item));
    return {{"record", properties}, {"overrides", overrides}};
}

}  // namespace NolSchedCtls
