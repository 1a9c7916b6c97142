#include <unistd.h>

#include <QApplication>
#include <QLoggingCategory>
#include <QSettings>
#include <QStyleFactory>
#include <iostream>

#include "host/entries/process.h"
#include "host/entries/visible_text.h"
#include "host/window/accessibility.h"
#include "host/window/appearance.h"
#include "host/window/help_menu.h"
#include "host/window/main_window.h"
#include "host/window/options.h"
#include "host/window/qt_text.h"
#include "host/window/screenshots.h"
#include "host/window/store_choice.h"
#include "host/window/store_menu.h"

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

int WritePictures(const EditorOptions& options) {
    Workspace workspace(
        {options.address, {}, WriteMessage, options.now, options.region, MissingStore::Refuse});
    const QString folder = ToQt(options.screenshots);
    options.id ? WriteScreenshots(workspace, folder, *options.id) : WriteScreenshots(workspace, folder);
    return exitDone;
}

// Until it is closed; gives the store that is to be opened after it.
std::optional<std::string> RunWindow(const EditorOptions& options, const std::string& address,
                                     QSettings& settings) {
    Workspace workspace({address, {}, ShowMessageBox, options.now, options.region});
    MainWindow window(workspace, UserDialogs());
    const StoreMenu stores(window, workspace, address, settings, UserDialogs());
    AddHelpMenu(window);
    window.RestoreLayout(settings);
    window.show();
    if (options.id && address == options.address) window.OpenEntry(*options.id);
    QApplication::exec();
    window.SaveLayout(settings);
    return stores.Wanted();
}

int RunWindows(const EditorOptions& options) {
    QSettings settings(u"NolSchedCtls"_s, u"nolsched-editor"_s);
    auto next = StoreChoice(settings, UserDialogs()).First(options.address);
    if (!next) return End(StoreError("No store was opened."), exitStore);
    std::string open = *next;
    while (next) try {
            auto afterwards = RunWindow(options, *next, settings);
            open = *std::exchange(next, std::move(afterwards));
        } catch (const StoreError& error) {
            if (next == open) throw;
            ShowMessageBox({error.what(), 16, "Schedule Entries"});
            next = open;  // it was ready a moment ago, and so was this one
        }
    return exitDone;
}

// What is fatal while the application starts is a display that cannot be reached. Returning would abort.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/) {
    if (type != QtFatalMsg) return;
    std::cerr << "nolsched-editor: there is no display that can be used; --screenshots needs none.\n";
    _exit(exitUsage);
}

// A failure that no act has told ends the act, not the program.
class Application : public QApplication {
  public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& error) {
            ShowMessageBox({error.what(), 16, "Schedule Entries"});
            return true;
        }
    }
};

void SetStyle(const std::string& style) {
    if (style.empty() || QApplication::setStyle(ToQt(style)) != nullptr) return;
    throw UsageError("There is no style " + Quoted(style) + "; there are " +
                     QStyleFactory::keys().join(u", "_s).toStdString() + ".");
}

// A store that cannot be opened is told in a box, where there is a display for one.
int RunGuarded(const EditorOptions& options) {
    try {
        SetStyle(options.style);
        return options.screenshots.empty() ? RunWindows(options) : WritePictures(options);
    } catch (const RequestError& error) {
        return End(error, exitUsage);
    } catch (const UsageError& error) {
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
    std::vector<char*> ofQt{argv[0]};
    for (std::string& argument : options.ofQt) ofQt.push_back(argument.data());
    int count = static_cast<int>(ofQt.size());
    ofQt.push_back(nullptr);
    const Application application(count, ofQt.data());
    qInstallMessageHandler(formerHandler);
    SetAppearance(options.isDark);
    InstallAccessibility();
    return RunGuarded(options);
}
