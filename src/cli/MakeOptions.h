#pragma once

#include "book/BookSettings.h"
#include "cli/Session.h"
#include "files/FolderItem.h"
#include "making/IndexPlan.h"
#include "making/NewDictionary.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace velmarin {

/// Puts what the command line says into the settings of a book, which otherwise stay. False, with a failure of the
/// session, if an option cannot be understood.
using SettingsChange = std::function<bool(BookSettings&, Session&)>;

/// Adds --NAME and --no-NAME. Of several the last one counts.
CLI::Option* addSwitch(CLI::App& command, const std::string& name, const std::string& description);
/// Sets the value as the switch says; without it, the value stays.
void takeSwitch(const CLI::Option* option, bool& value);

/// Adds --ignore, --alike, --spanish and --ijuv.
SettingsChange addOrderOptions(CLI::App& command);
/// Adds --format, --independent and those of the member `About`.
SettingsChange addDictionaryOptions(CLI::App& command);

/// The place of a new dictionary, as GROUP/NAME says it.
struct NewPlace {
    FolderItem group;
    std::string name;
};
/// The group may be missing, the folder that holds it may not, and the name must be free: nullopt with a failure of the
/// session.
std::optional<NewPlace> newPlace(const std::string& argument, Session& session);

/// Writes the dictionary, and notes while it waits for another run. False with a failure of the session.
bool writeDictionary(const NewDictionary& dictionary, const NewPlace& place, Session& session);

/// A record for each headword that breaks the order.
void reportMisplaced(const std::vector<BookEntry>& entries, const std::vector<BookPage>& pages,
                     const std::vector<Misplaced>& misplaced, Session& session);
/// The last record: "made", the dictionary, and the number of lines of ind.
void reportMade(const NewDictionary& dictionary, const std::string& target, Session& session);

} // namespace velmarin
