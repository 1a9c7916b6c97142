// Lintel: statements, values and date-times. What the records ask of the host's database.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "NolSchedCtls/base/date_time.h"
#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls::inline v1 {

// A value of a statement or of a row; the first alternative is no value.
using LintelValue = std::variant<std::monostate, std::int64_t, double, std::string>;

// One column of the present row. Texts are UTF-8.
struct LintelField {
    std::string Name;
    LintelValue Value;

    bool operator==(const LintelField&) const = default;
};

// The rows of a query, standing on the first one after opening.
class NOLSCHED_API ILintelRows {
  public:
    virtual ~ILintelRows() = default;
    virtual bool AtEnd() const = 0;
    // Call only while not AtEnd. Throws NolSchedError if the next row cannot be fetched.
    virtual void MoveNext() = 0;
    // Column names compare without regard to case. Throws NolSchedError for a column that is not there.
    virtual LintelField Fields(std::string_view sColumn) const = 0;
};

// What OpenRows takes. Zero and empty ask for the database's own defaults.
struct OpenRowsArguments {
    std::string sQuery;
    int nCursor = 0;
    std::string sSource = {};
    int nLock = 0;
    std::string sUser = {};
    std::string sPassword = {};
    int nTimeout = 60;  // seconds

    bool operator==(const OpenRowsArguments&) const = default;
};

// A date-time for the host's own row.
struct LintelDateTime {
    DateTime Value = 0;
    bool IsImmediate = false;
};

class NOLSCHED_API ILintelDb {
  public:
    virtual ~ILintelDb() = default;

    // Throws NolSchedError if the statement fails.
    virtual void ExecuteStatement(std::string_view sStatement) = 0;
    virtual std::unique_ptr<ILintelRows> OpenRows(const OpenRowsArguments& arguments) = 0;
    // The values as comma-separated statement literals, in their order; quoting is the database's own.
    virtual std::string JoinValues(const std::vector<LintelValue>& values) const = 0;
    // The moment of an entry that runs at once.
    virtual LintelDateTime ImmediateDateTime() const = 0;

    // No value if the number equals `nNoValue`.
    virtual LintelValue NumberToValue(std::int32_t nNumber, std::int32_t nNoValue) const;
    // The fallback if the field has no value. Throws NolSchedError for what is no 32-bit number.
    virtual std::int32_t FieldToNumber(const LintelField& field, std::int32_t nFallback) const;
    virtual LintelDateTime DateTimeOf(DateTime dDateTime) const { return {dDateTime, false}; }
};

// The text of a field, empty without a value; numbers in plain digits.
NOLSCHED_API std::string FieldToText(const LintelField& field);

// Made and used while a failure is being handled: PresentFailure() (base/error.h) tells its words, to the
// report's constructor and in ReportFailure, and std::current_exception() is the failure itself.
class NOLSCHED_API ILintelFailureReport {
  public:
    virtual ~ILintelFailureReport() = default;
    // Makes the failure known and returns; must not throw. The text comes before the failure's own words; the
    // records give an empty one.
    virtual void ReportFailure(std::string_view sText) = 0;
};

}  // namespace NolSchedCtls::inline v1
