// The program itself, as a process without a display.
#include "tests/window/windows.h"

namespace NolSchedCtls::Testing {

TEST_F(Windows, TheProgramObeysItsCommandLine) {
    const QTemporaryDir folder;
    QProcess process;
    const auto start = [&](QString arguments, const QString& variables = {}) {
        arguments.replace(u'$', ToQt(store.Address()));
        const auto line =
            u"cd %1; mkdir -p taken/list.png; unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM; "
            u"LC_ALL=C XDG_RUNTIME_DIR=%1 XDG_CONFIG_HOME=%1 %2 exec " NOLSCHED_EDITOR u" %3"_s;
        process.start(u"sh"_s, {u"-c"_s, line.arg(folder.path(), variables, arguments)});
    };
    const auto pictures = [&] {
        std::map<QString, QImage> read;
        for (const QFileInfo& file : QDir(folder.path()).entryInfoList({u"*.png"_s}, QDir::Files))
            read[file.completeBaseName()] = QImage(file.filePath());
        return read;
    };
    const struct {
        const char* arguments;  // with $ for the store's address
        int status;
        int errors;        // lines on standard error; if none
        const char* says;  // is on standard output, among others
        int changes;       // pictures that differ from those of the last run
    } cases[] = {
        {"--help", 0, 0, "--screenshots", 0},
        {"--version", 0, 0, "nolsched-editor ", 0},
        {"--nosuch", 2, 1, "nosuch", 0},
        {"--db", 2, 1, "db", 0},
        {"--dark=1", 2, 1, "dark", 0},
        {"--now noon", 2, 1, "noon", 0},
        {"12x", 2, 1, "12x", 0},
        {"", 2, 1, "display", 0},
        {"--db=/nowhere/x --screenshots=p", 3, 1, "/nowhere/x", 0},
        {"--db other --screenshots=/proc/x", 3, 1, "/proc/x", 0},
        {"--db other --screenshots=taken", 3, 1, "taken/list.png", 0},
        {"--db other --now=2026-03-02T09:05 --screenshots=.", 0, 0, "", 16},
        {"--db=other --now 2026-03-02T09:05 --screenshots .", 0, 0, "", 0},
        {"--db other --now=2027-01-05T09:05 --screenshots=.", 0, 0, "", 15},             // with a date
        {"--db=$ --now=2027-01-05T09:05 --screenshots=.", 0, 60, "Nightly Sweep: ", 3},  // general, list
        {"--db other --dark --screenshots=.", 0, 0, "", 16},
    };
    Store();
    store.Sql("UPDATE NOL_Setting SET Value = '1' WHERE Name = 'Max Purge Interval'");  // of which tabs warn
    std::map<QString, QImage> former;
    for (const auto& [arguments, status, errors, says, changes] : cases) {
        SCOPED_TRACE(arguments);
        start(QString::fromUtf8(arguments));
        ASSERT_TRUE(process.waitForFinished(20000)) << "waits for a user";
        EXPECT_EQ(process.exitCode(), status);
        const QByteArray output = process.readAllStandardOutput();
        const QByteArray error = process.readAllStandardError();
        EXPECT_EQ(error.count('\n'), errors) << error.toStdString();
        EXPECT_TRUE((errors == 0 ? output : error).contains(says)) << (output + error).toStdString();
        int changed = 0;
        for (const auto& [name, picture] : pictures())
            changed += std::exchange(former[name], picture) == picture ? 0 : 1;
        EXPECT_EQ(changed, changes);
    }
    EXPECT_LT(former[u"list"_s].pixelColor(1, 1).lightness(), 60);
    // This platform writes a picture of each window, output0000.png and so on.
    start(u"--db $ 1"_s, u"QT_QPA_PLATFORM=minimal QT_DEBUG_BACKINGSTORE=1"_s);
    const auto isEditor = [](const auto& one) {
        return one.first.startsWith(u"output") && one.second.width() < 1080;
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::ranges::any_of(pictures(), isEditor); })) << "no editor";
}

}  // namespace NolSchedCtls::Testing
