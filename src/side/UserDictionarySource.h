#pragma once

#include "side/DictionaryModule.h"
#include "side/LookUpSource.h"
#include "side/SourceContext.h"

namespace velmarin {

/// The chosen user dictionary as a source. Hits are inserted at the insertion point. Inserts nothing if there is no
/// hit or no dictionary is chosen.
class UserDictionarySource : public LookUpSource {
  public:
    explicit UserDictionarySource(const SourceContext& context) : context_(context) {}

    void lookUp(const std::string& word) override { mSearchUserDictionary(word); }
    /// Raises NilObjectException if the dictionary's index cannot be read.
    void mSearchUserDictionary(const std::string& word);

  private:
    SourceContext context_;
    DictionaryModule module_;
};

} // namespace velmarin
