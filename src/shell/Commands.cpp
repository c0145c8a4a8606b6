#include "shell/Commands.h"

#include <QMetaMethod>
#include <QObject>

#include <algorithm>
#include <string>

namespace velmarin {

namespace {

/// The slot of the command; invalid if the object has none.
QMetaMethod slotOf(const QObject& object, std::string_view command) {
    const QMetaObject& type = *object.metaObject();
    return type.method(type.indexOfSlot((std::string(command) + "_Action(int)").c_str()));
}

} // namespace

bool Commands::handles(std::string_view command) const {
    return std::any_of(objects_.begin(), objects_.end(),
                       [command](const QObject* object) { return slotOf(*object, command).isValid(); });
}

bool Commands::run(std::string_view command, int index) const {
    for (QObject* object : objects_)
        if (const QMetaMethod slot = slotOf(*object, command); slot.isValid())
            return slot.invoke(object, Qt::DirectConnection, Q_ARG(int, index));
    return false;
}

Commands Commands::withFirst(QObject& first) const {
    Commands all{&first};
    all.objects_.insert(all.objects_.end(), objects_.begin(), objects_.end());
    return all;
}

} // namespace velmarin
