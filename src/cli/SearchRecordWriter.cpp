#include "cli/SearchRecordWriter.h"

#include "text/StringFields.h"

#include <nlohmann/json.hpp>

#include <filesystem>

namespace velmarin {

namespace {

using Json = nlohmann::ordered_json;

std::string_view outcomeName(SearchOutcome outcome) {
    switch (outcome) {
    case SearchOutcome::Hit:
        return "hit";
    case SearchOutcome::Before:
        return "before";
    case SearchOutcome::After:
        return "after";
    case SearchOutcome::Skipped:
        break;
    }
    return "skipped";
}

/// Line `number` of an index up to its delimiter; null if there is no such line.
Json headword(IndexedTextFile& index, std::size_t number) {
    const IndexedTextFile::Line line = index.line(number);
    if (line.status != IndexedTextFile::Status::Found)
        return nullptr;
    return std::string(NthField(line.text, "__DLM__", 1));
}

Json pathOf(const DictionaryItem& item, const std::string& page) {
    const FolderItem file = item.ImageFolder.Child(page);
    if (!file.Exists())
        return nullptr;
    return std::filesystem::absolute(file.path()).native();
}

} // namespace

SearchRecordWriter::SearchRecordWriter(Output& out, const DictionaryList& dictionaries, bool json)
    : out_(out), dictionaries_(dictionaries), json_(json) {
    if (!json)
        return;
    for (const auto& item : dictionaries)
        indexes_.emplace_back(item->DictionaryFolderitem.Child("ind"));
}

void SearchRecordWriter::write(std::string_view word, std::size_t index, const SearchResult& result) {
    if (json_)
        writeJson(word, index, result);
    else
        writeColumns(word, *dictionaries_[index], result);
}

void SearchRecordWriter::writeColumns(std::string_view word, const DictionaryItem& item, const SearchResult& result) {
    std::vector<std::string_view> columns = {word, item.name, outcomeName(result.outcome), result.line.imageName};
    columns.insert(columns.end(), result.line.errata.begin(), result.line.errata.end());
    out_.record(columns);
}

void SearchRecordWriter::writeJson(std::string_view word, std::size_t index, const SearchResult& result) {
    const DictionaryItem& item = *dictionaries_[index];
    const std::string& page = result.line.imageName;
    Json record = {{"word", word}, {"dictionary", item.name}, {"outcome", outcomeName(result.outcome)}};
    record["page"] = page.empty() ? Json(nullptr) : Json(page);
    record["path"] = page.empty() ? Json(nullptr) : pathOf(item, page);
    record["errata"] = result.line.errata;
    record["line"] = result.outcome == SearchOutcome::Hit ? Json(result.place) : Json(nullptr);
    const bool searched = result.outcome != SearchOutcome::Skipped && item.loaded;
    record["headword_before"] = searched ? headword(indexes_[index], result.place) : Json(nullptr);
    record["headword_after"] = searched ? headword(indexes_[index], result.place + 1) : Json(nullptr);
    out_.text(record.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n');
}

} // namespace velmarin
