#include "platform/ScriptedHost.h"

#include <memory>
#include <utility>

namespace velmarin {

namespace {

template <typename Value> Value takeFirst(std::deque<Value>& script, Value beyond) {
    if (script.empty())
        return beyond;
    Value first = std::move(script.front());
    script.pop_front();
    return first;
}

} // namespace

void ScriptedHost::MsgBox(std::string_view text) {
    messages.emplace_back(text);
}

void ScriptedHost::MsgBoxWithDetails(std::string_view text, std::string_view moreText) {
    messages.emplace_back(text);
    details.emplace_back(moreText);
}

Host::Answer ScriptedHost::askYesNo(std::string_view text) {
    questions.emplace_back(text);
    return takeFirst(answers, Answer::No);
}

bool ScriptedHost::AsyncShiftKey() {
    return takeFirst(shift.next, shift.held);
}

bool ScriptedHost::AsyncCommandKey() {
    return takeFirst(command.next, command.held);
}

bool ScriptedHost::AsyncOptionKey() {
    return takeFirst(option.next, option.held);
}

std::filesystem::path ScriptedHost::SelectFolder(std::string_view prompt, const std::filesystem::path& openAt,
                                                 FolderChoice choice) {
    prompts.emplace_back(prompt);
    openedAt.push_back(openAt);
    folderChoices.push_back(choice);
    return takeFirst(folders, {});
}

std::filesystem::path ScriptedHost::GetOpenFile(std::string_view prompt, const std::vector<std::string>& extensions) {
    prompts.emplace_back(prompt);
    askedExtensions.push_back(extensions);
    return takeFirst(files, {});
}

bool ScriptedHost::Launch(const std::filesystem::path& item) {
    launched.push_back(item);
    return launches;
}

void ScriptedHost::Yield() {
    ++yields;
    if (!onYield || yielding_)
        return;
    yielding_ = true;
    const auto done = [this](void*) { yielding_ = false; };
    const std::unique_ptr<void, decltype(done)> guard(this, done);
    onYield();
}

} // namespace velmarin
