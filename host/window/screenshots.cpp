#include "host/window/screenshots.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/general/nol_sched_gen_tab.h"
#include "NolSchedCtls/tabs/override/nol_sched_override_tab.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "host/window/main_window.h"
#include "host/window/outlook_pane.h"
#include "host/window/page_view.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

// Acts on a page's tab.
using Prepare = void (*)(PaviseTab& tab);

void Nothing(PaviseTab& /*tab*/) {}

void MakeMonthly(PaviseTab& tab) {
    auto& schedule = dynamic_cast<XNolScheduleTab&>(tab);
    schedule.cboPeriod.Pick("Monthly");
    schedule.cboDayNum.Pick("2nd");
    schedule.cboDayName.Pick("Monday");
    schedule.cboFrequency.Pick("3");
    schedule.cbExcludeDay[7].Click();
    schedule.chkEndDate.Click();
    schedule.SSDEndDate.PickDate(schedule.SSDStartDate.DateValue() + 365);
    schedule.dtpStartTime.PickTime(21, 30);
}

template <int period>
void PickPeriod(PaviseTab& tab) {
    dynamic_cast<XNolScheduleTab&>(tab).cboPeriod.PickIndex(period);
}

void MakeGeneral(PaviseTab& tab) {
    auto& general = dynamic_cast<XNolSchedGenTab&>(tab);
    if (!general.ctlPurgeOptions.IsOn()) general.ctlPurgeOptions.Click();
    general.ctlPurgeOptions.PasteDays("30");
    general.chkHom.Click();
    general.chkPlm.Click();
    general.chkCreateFiles.Click();
}

void SwitchOn(PaviseTab& tab) {
    dynamic_cast<NolSchedOverrideTab&>(tab).chkOverride.Click();
    for (ViewField* field : tab.Fields()) {
        if (auto* const text = FieldAs<TextBox>(*field))
            text->Paste(text->Name() == "txtDuration" ? "60" : "5");
        auto* const picker = FieldAs<XMarlet>(*field);
        if (picker != nullptr && !picker->Entries().empty()) picker->Pick(picker->Entries().front()->Name);
    }
}

struct Shot {
    const char* file;
    const char* page;
    bool isImmediate;
    Prepare prepare;
};

constexpr std::array shots = {
    Shot{"general", "general", false, MakeGeneral},
    Shot{"general-immediate", "general", true, Nothing},
    Shot{"schedule", "schedule", false, MakeMonthly},
    Shot{"schedule-once", "schedule", false, PickPeriod<0>},
    Shot{"schedule-hourly", "schedule", false, PickPeriod<1>},
    Shot{"schedule-daily", "schedule", false, PickPeriod<2>},
    Shot{"schedule-weekly", "schedule", false, PickPeriod<3>},
    Shot{"hom", "hom", false, SwitchOn},
    Shot{"hom-off", "hom", false, Nothing},
    Shot{"plm", "plm", false, SwitchOn},
    Shot{"plm-off", "plm", false, Nothing},
    Shot{"rfc", "rfc", false, SwitchOn},
    Shot{"rfc-off", "rfc", false, Nothing},
    Shot{"vcsa", "vcsa", false, SwitchOn},
    Shot{"vcsa-off", "vcsa", false, Nothing},
};

// No field bears a cursor or a marked text.
void TakeFocusAway() {
    QWidget* const focused = QApplication::focusWidget();
    if (auto* const edit = qobject_cast<QLineEdit*>(focused)) edit->deselect();
    if (focused != nullptr) focused->clearFocus();
}

// To a fresh file. False, and errno, if that fails.
bool Write(const QByteArray& bytes, const QByteArray& path) {
    std::FILE* const file = std::fopen(path.constData(), "wbx");
    if (file == nullptr) return false;
    const auto size = static_cast<std::size_t>(bytes.size());
    const bool isWritten = std::fwrite(bytes.constData(), 1, size, file) == size;
    return std::fclose(file) == 0 && isWritten;
}

// The fresh file takes the name: a link that bears it is not written through.
void Write(QWidget& window, const QString& folder, std::string_view name) {
    window.show();
    QApplication::processEvents();
    TakeFocusAway();
    QBuffer picture;  // the writer of pictures tells no reason, and adds lines of its own
    window.grab().save(&picture, "PNG", 0);  // as small as can be
    const QByteArray path = QFile::encodeName(QDir(folder).filePath(ToQt(name) + u".png"_s));
    const QByteArray fresh = path + ".part";
    std::remove(fresh.constData());
    if (Write(picture.data(), fresh) && std::rename(fresh.constData(), path.constData()) == 0) return;
    const int trouble = errno;
    std::remove(fresh.constData());
    throw NolSchedError("The picture " + Quoted(path.toStdString()) +
                        " cannot be written: " + std::strerror(trouble) + ".");
}

void WriteShot(Workspace& workspace, const QString& folder, const Shot& shot, std::int32_t groupId) {
    auto session = std::make_unique<EntrySession>(
        workspace, EntrySession::NewEntry{shot.isImmediate, groupId, "Nightly Sweep"});
    EntryEditor editor(std::move(session), {});
    editor.setAttribute(Qt::WA_DeleteOnClose, false);
    editor.ShowPage(shot.page);
    shot.prepare(*editor.Session().FindPage(shot.page)->tab);
    Write(editor, folder, shot.file);
    editor.hide();
}

void Make(const QString& folder) {
    if (!QDir().mkpath(folder))
        throw NolSchedError("The folder " + Quoted(folder.toStdString()) + " cannot be made.");
}

}  // namespace

void WriteScreenshots(Workspace& workspace, const QString& folder, std::int32_t id) {
    EntryEditor editor(std::make_unique<EntrySession>(workspace, id), {});
    editor.setAttribute(Qt::WA_DeleteOnClose, false);
    Make(folder);
    for (const Page& page : editor.Session().Pages()) {
        editor.ShowPage(page.name);
        Write(editor, folder, page.name);
    }
    editor.hide();
}

void WriteScreenshots(Workspace& workspace, const QString& folder) {
    Make(folder);
    const auto groups = CaddisStore().DocumentsOfType(DocumentTypes().TypeByName(MAppConstants::nolGroup));
    for (const Shot& shot : shots)
        WriteShot(workspace, folder, shot, groups.empty() ? 0 : groups.front()->Id);
    MainWindow window(workspace, {});
    window.resize(1180, 640);
    window.show();
    while (window.IsLoading()) QApplication::processEvents();
    window.ChooseNone();
    do QApplication::processEvents();
    while (window.Pane().IsCounting());
    Write(window, folder, "list");
}

}  // namespace NolSchedCtls
