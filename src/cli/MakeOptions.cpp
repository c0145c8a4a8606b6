#include "cli/MakeOptions.h"

#include "cli/FolderArgument.h"
#include "cli/MaintenanceReport.h"
#include "cli/Operands.h"
#include "making/KeyRule.h"
#include "text/NumberText.h"

#include <filesystem>
#include <utility>

namespace velmarin {

namespace {

void take(const CLI::Option* option, std::string& value) {
    if (option->count() > 0)
        value = operand(option);
}

} // namespace

CLI::Option* addSwitch(CLI::App& command, const std::string& name, const std::string& description) {
    return addFlag(command, "--" + name + ",!--no-" + name, description)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

void takeSwitch(const CLI::Option* option, bool& value) {
    if (option->count() > 0)
        value = option->as<bool>();
}

SettingsChange addOrderOptions(CLI::App& command) {
    const CLI::Option* ignore =
        addOption(command, "--ignore", "CHARACTERS", "Characters that the book's order ignores: \"-' \"");
    const CLI::Option* alike =
        addOption(command, "--alike", "PAIRS", "Letters that the book sorts as others: \"ä=ae, ø=o\"");
    const CLI::Option* spanish = addSwitch(command, "spanish", "\"ch\" and \"ll\" are letters of their own");
    const CLI::Option* ijuv = addSwitch(command, "ijuv", "i and j are one letter, and so are u and v");
    return [=](BookSettings& settings, Session& session) {
        take(ignore, settings.ignore);
        take(alike, settings.alike);
        takeSwitch(spanish, settings.order.SpanishMode);
        takeSwitch(ijuv, settings.order.IJUVMode);
        if (KeyRule::parse(settings.ignore, settings.alike))
            return true;
        session.couldNot("--alike: each pair is LETTERS=LETTERS");
        return false;
    };
}

SettingsChange addDictionaryOptions(CLI::App& command) {
    const CLI::Option* format = addOption(command, "--format", "PICTURE", "How entry numbers are written, such as 000");
    const CLI::Option* independent = addSwitch(command, "independent", "The dictionary is searched on its own");
    const std::pair<const CLI::Option*, std::string About::*> parts[] = {
        {addOption(command, "--title", "TEXT", "About: the title of the book"), &About::title},
        {addOption(command, "--edition", "TEXT", "About: its edition"), &About::edition},
        {addOption(command, "--year", "TEXT", "About: its year"), &About::year},
        {addOption(command, "--language", "TEXT", "About: its language"), &About::language},
        {addOption(command, "--source", "TEXT", "About: where the scan comes from"), &About::source},
        {addOption(command, "--rights", "TEXT", "About: who has rights in it"), &About::rights}};
    return [=](BookSettings& settings, Session&) {
        take(format, settings.order.FormatFom);
        takeSwitch(independent, settings.independent);
        for (const auto& [option, part] : parts)
            take(option, settings.about.*part);
        return true;
    };
}

std::optional<NewPlace> newPlace(const std::string& argument, Session& session) {
    const std::filesystem::path target(argument);
    const std::filesystem::path group = target.parent_path().empty() ? "." : target.parent_path();
    const bool isThere = FolderItem(group).occupied();
    const std::filesystem::path above = group.parent_path().empty() ? "." : group.parent_path();
    if (!folderArgument(isThere ? group.string() : above.string(), session))
        return std::nullopt;
    NewPlace place{FolderItem(isThere ? group : above / group.filename()), target.filename().string()};
    // Checked again as the dictionary is written; here before the long work.
    if (isMemberName(place.name) && place.group.Child(place.name).occupied()) {
        session.couldNot(Failure{place.group.Child(place.name), kNameIsTaken}.message());
        return std::nullopt;
    }
    return place;
}

bool writeDictionary(const NewDictionary& dictionary, const NewPlace& place, Session& session) {
    const Result written = writeNewDictionary(dictionary, place.group, place.name, waitNotice());
    if (!written)
        session.couldNot(written.failure().message());
    return static_cast<bool>(written);
}

void reportMisplaced(const std::vector<BookEntry>& entries, const std::vector<BookPage>& pages,
                     const std::vector<Misplaced>& misplaced, Session& session) {
    const auto headword = [&](std::optional<std::size_t> entry) {
        return entry ? entries[*entry].headword : std::string();
    };
    for (const Misplaced& each : misplaced)
        session.out().record({"misplaced", pages[entries[each.entry].page].file, headword(each.entry),
                              headword(each.before), headword(each.after)});
}

void reportMade(const NewDictionary& dictionary, const std::string& target, Session& session) {
    const std::size_t withClosingLine = dictionary.lines.size() + 1;
    session.out().record({"made", target, Str(static_cast<std::int64_t>(withClosingLine))});
}

} // namespace velmarin
