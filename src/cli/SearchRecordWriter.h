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

/// Writes the results of searches in one group, as columns or as JSON.
class SearchRecordWriter {
  public:
    /// `out` and `dictionaries` must outlive the writer.
    SearchRecordWriter(Output& out, const DictionaryList& dictionaries, bool json);

    /// Writes the result of searching for `word` in dictionary `index`.
    void write(std::string_view word, std::size_t index, const SearchResult& result);

  private:
    void writeColumns(std::string_view word, const DictionaryItem& item, const SearchResult& result);
    void writeJson(std::string_view word, std::size_t index, const SearchResult& result);

    Output& out_;
    const DictionaryList& dictionaries_;
    bool json_;
    /// The `ind` of each dictionary, for its unconverted headwords.
    std::vector<IndexedTextFile> indexes_;
};

} // namespace velmarin
