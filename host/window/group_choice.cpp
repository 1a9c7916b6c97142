#include "host/window/group_choice.h"

#include <algorithm>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/services/provider.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

std::optional<GroupChoice> ChooseGroup(QWidget* parent, const Dialogs& dialogs, const QString& title,
                                       const QString& label, const QString& current) {
    const auto groups = CaddisStore().DocumentsOfType(DocumentTypes().TypeByName(MAppConstants::nolGroup));
    if (groups.empty()) throw RequestError("There is no study group to run; make one first.");
    QStringList names;
    for (const auto& group : groups) names.append(ToQt(group->Name));
    const auto start = static_cast<int>(std::max<qsizetype>(0, names.indexOf(current)));
    const qsizetype place = names.indexOf(dialogs.choose(parent, title, label, names, start));
    if (place < 0) return {};
    const auto& chosen = *groups[static_cast<std::size_t>(place)];
    return GroupChoice{chosen.Id, chosen.Name};
}

}  // namespace NolSchedCtls
