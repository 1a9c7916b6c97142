#include <QApplication>
#include <QLoggingCategory>
#include <QSettings>
#include <iostream>

#include "host/entries/process.h"
#include "host/entries/visible_text.h"
#include "host/window/appearance.h"
#include "host/window/main_window.h"
#include "host/window/options.h"
#include "host/window/qt_text.h"
#include "host/window/screenshots.h"

namespace {

using namespace NolSchedCtls;

bool HasDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

int End(const std::exception& error, ExitStatus status) {
    std::cerr << "nolsched-editor: " << Visible(error.what()) << '\n';
    return status;
}

// Pictures show no boxes: what a tab has to say goes to the terminal.
void WriteMessage(const Message& message) {
    std::cerr << Visible(message.title) << ": " << Visible(message.text) << '\n';
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
        {options.address, UserName(), isPictures ? WriteMessage : ShowMessageBox, options.now});
    if (!isPictures) return RunWindow(workspace, options);
    WriteScreenshots(workspace, ToQt(options.screenshots));
    return exitDone;
}

// A store that cannot be opened is told in a box, where there is a display for one.
int RunGuarded(const EditorOptions& options) {
    try {
        return Run(options);
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
    if (!HasDisplay() && options.screenshots.empty()) {
        std::cerr << "nolsched-editor: there is no display; --screenshots needs none.\n";
        return exitUsage;
    }
    if (!HasDisplay()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        QLoggingCategory::setFilterRules(u"default.warning=false"_s);  // what the platform does not support
    }
    const QApplication application(argc, argv);
    SetAppearance(options.isDark);
    return RunGuarded(options);
}
