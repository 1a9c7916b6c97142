#include <unistd.h>

#include <QApplication>
#include <QLoggingCategory>
#include <QSettings>
#include <iostream>

#include "host/entries/process.h"
#include "host/entries/visible_text.h"
#include "host/window/accessibility.h"
#include "host/window/appearance.h"
#include "host/window/main_window.h"
#include "host/window/options.h"
#include "host/window/qt_text.h"
#include "host/window/screenshots.h"

namespace {

using namespace NolSchedCtls;

int End(const std::exception& error, ExitStatus status) {
    std::cerr << "nolsched-editor: " << Visible(error.what()) << '\n';
    return status;
}

// Pictures show no boxes: what a tab has to say goes to the terminal.
void WriteMessage(const Message& message) {
    std::cerr << VisibleLines(Visible(message.title) + ": ", message.text);
}

int RunWindow(Workspace& workspace, const EditorOptions& options) {
    QSettings settings(u"NolSchedCtls"_s, u"nolsched-editor"_s);
    MainWindow window(workspace, UserDialogs());
    window.RestoreLayout(settings);
    window.show();
    if (options.id) window.OpenEntry(*options.id);
    const int status = QApplication::exec();
    window.SaveLayout(settings);
    return status;
}

int Run(const EditorOptions& options) {
    const bool isPictures = !options.screenshots.empty();
    Workspace workspace(
        {options.address, {}, isPictures ? WriteMessage : ShowMessageBox, options.now, options.region});
    if (!isPictures) return RunWindow(workspace, options);
    const QString folder = ToQt(options.screenshots);
    options.id ? WriteScreenshots(workspace, folder, *options.id) : WriteScreenshots(workspace, folder);
    return exitDone;
}

// What is fatal while the application starts is a display that cannot be reached. Returning would abort.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/) {
    if (type != QtFatalMsg) return;
    std::cerr << "nolsched-editor: there is no display that can be used; --screenshots needs none.\n";
    _exit(exitUsage);
}

// A store that cannot be opened is told in a box, where there is a display for one.
int RunGuarded(const EditorOptions& options) {
    try {
        return Run(options);
    } catch (const RequestError& error) {
        return End(error, exitUsage);
    } catch (const std::exception& error) {
        if (options.screenshots.empty()) ShowMessageBox({error.what(), 16, "Schedule Entries"});
        return End(error, exitStore);
    }
}

}  // namespace

int main(int argc, char** argv) {
    OpenStandardStreams();
    const std::vector<std::string> given(argv + 1, argv + argc);
    HidePasswords(argc, argv);
    EditorOptions options;
    try {
        options = ReadOptions(given);
        std::cout << options.answer;
        Flush(std::cout, "standard output");
    } catch (const UsageError& error) {
        return End(error, exitUsage);
    } catch (const OutputError& error) {
        return End(error, exitStore);
    }
    if (!options.answer.empty()) return exitDone;
    // Pictures are the same everywhere and need no display. QT_LOGGING_RULES shows what is meant for
    // developers.
    if (!options.screenshots.empty() && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules(u"*.warning=false"_s);
    const auto formerHandler = qInstallMessageHandler(EndWithoutDisplay);
    const QApplication application(argc, argv);
    qInstallMessageHandler(formerHandler);
    SetAppearance(options.isDark);
    InstallAccessibility();
    return RunGuarded(options);
}
