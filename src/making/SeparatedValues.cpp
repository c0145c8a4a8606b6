#include "making/SeparatedValues.h"

#include "files/LineReader.h"
#include "text/FindReplace.h"
#include "text/LetterCase.h"
#include "text/StringFields.h"

#include <algorithm>
#include <new>

#include <csv.h>

namespace velmarin {

namespace {

char separatorOf(std::string_view text) {
    const std::string_view header = text.substr(0, text.find_first_of("\r\n"));
    for (const char separator : {'\t', ';'})
        if (header.find(separator) != std::string_view::npos)
            return separator;
    return ',';
}

struct Row {
    std::vector<std::string> fields;
    std::size_t number = 0;
};

/// Collects the rows that libcsv finds.
struct Collector {
    std::vector<Row> rows = {};
    std::vector<std::string> fields = {};
    std::size_t number = 1;
    int endedBy = 0;

    static void field(void* text, std::size_t length, void* self) {
        static_cast<Collector*>(self)->fields.emplace_back(trimmed({static_cast<const char*>(text), length}));
    }
    static void rowEnd(int character, void* self) { static_cast<Collector*>(self)->endRow(character); }

    void endRow(int character) {
        const bool secondOfPair = character == '\n' && endedBy == '\r' && fields.empty();
        endedBy = secondOfPair ? 0 : character;
        if (secondOfPair)
            return;
        if (std::any_of(fields.begin(), fields.end(), [](const std::string& each) { return !each.empty(); }))
            rows.push_back({std::move(fields), number});
        fields.clear();
        ++number;
    }
};

/// False if the text ends in a quoted field.
bool readRows(std::string_view text, char separator, std::vector<Row>& rows) {
    csv_parser parser;
    // All line ends are reported, so that rows are counted as a spreadsheet shows them.
    csv_init(&parser, CSV_REPALL_NL);
    csv_set_delim(&parser, static_cast<unsigned char>(separator));
    csv_set_space_func(&parser, [](unsigned char) { return 0; });
    Collector found;
    const bool parsed =
        csv_parse(&parser, text.data(), text.size(), Collector::field, Collector::rowEnd, &found) == text.size();
    // Only an open quote at the end is an error; quotes inside a field are not.
    csv_set_opts(&parser, CSV_REPALL_NL | CSV_STRICT | CSV_STRICT_FINI);
    const bool ended = parsed && csv_fini(&parser, Collector::field, Collector::rowEnd, &found) == 0;
    const int error = csv_error(&parser);
    csv_free(&parser);
    if (!ended && error != CSV_EPARSE)
        throw std::bad_alloc();
    rows = std::move(found.rows);
    return ended;
}

} // namespace

SeparatedValues SeparatedValues::parse(std::string_view text) {
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    SeparatedValues table;
    std::vector<Row> rows;
    table.whole_ = readRows(text, separatorOf(text), rows);
    bool header = true;
    for (Row& row : rows) {
        if (header) {
            table.columns_ = std::move(row.fields);
            header = false;
            continue;
        }
        table.rows_.push_back(std::move(row.fields));
        table.numbers_.push_back(row.number);
    }
    return table;
}

std::optional<std::size_t> SeparatedValues::column(std::string_view name) const {
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [name](const std::string& each) { return equalStrings(each, name); });
    if (found == columns_.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - columns_.begin());
}

std::string_view SeparatedValues::field(std::size_t row, std::string_view name) const {
    const auto at = column(name);
    return at && *at < rows_[row].size() ? std::string_view(rows_[row][*at]) : std::string_view();
}

std::string tabSeparatedField(std::string_view text) {
    if (text.find_first_of("\t\r\n") == std::string_view::npos && !text.starts_with('"'))
        return std::string(text);
    return '"' + ReplaceAllB(text, "\"", "\"\"") + '"';
}

} // namespace velmarin
