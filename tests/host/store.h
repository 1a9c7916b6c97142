// A store of its own for each test, and what stands in it.
#pragma once

#include <string>

namespace NolSchedCtls::Testing {

// A new store with samples, or nothing yet, gone at its end: a file, or a database on the server that
// NOLSCHED_TEST_SERVER names
// ("postgresql://user@host:port").
class TemporaryStore {
  public:
    explicit TemporaryStore(bool isMade = true);
    ~TemporaryStore();
    TemporaryStore(const TemporaryStore&) = delete;

    static bool IsServer();
    const std::string& Address() const { return address; }
    // Rows as "1|HOM Study|NULL|''", one a line; empty for a statement without rows.
    std::string Sql(const std::string& statement) const;
    // All rows of all tables.
    std::string Dump() const;

  private:
    std::string address;
};

// An empty folder, gone at its end.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;

    const std::string& Path() const { return path; }

  private:
    std::string path;
};

}  // namespace NolSchedCtls::Testing
