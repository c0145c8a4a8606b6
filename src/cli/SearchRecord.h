#pragma once

#include "cli/Output.h"
#include "files/IndexedTextFile.h"
#include "search/DictionarySearch.h"
#include "store/Group.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// Writes the outcome of searches in one group, as columns or as JSON.
class SearchRecordWriter {
  public:
    /// Both `out` and `dictionaries` outlive the writer.
    SearchRecordWriter(Output& out, const DictionaryList& dictionaries, bool json);

    /// The result of looking `word` up in the dictionary at `index`.
    void write(std::string_view word, std::size_t index, const SearchResult& result);

  private:
    void writeColumns(std::string_view word, const DictionaryItem& item, const SearchResult& result);
    void writeJson(std::string_view word, std::size_t index, const SearchResult& result);

    Output& out_;
    const DictionaryList& dictionaries_;
    bool json_;
    /// The `ind` of each dictionary, for its headwords as they stand.
    std::vector<IndexedTextFile> indexes_;
};

} // namespace velmarin
