#pragma once

#include "draft/Draft.h"
#include "files/FolderItem.h"
#include "files/Result.h"
#include "making/KeyRule.h"
#include "reading/PageGuess.h"
#include "text/SearchWord.h"

#include <optional>
#include <string>

namespace velmarin {

/// The book that a WorkshopModel works on: where its pages and its draft are kept, and how its pages mend each other.
/// Pages go by their file names.
class WorkshopBook {
  public:
    virtual ~WorkshopBook() = default;

    /// For the title of the window.
    virtual std::string name() const = 0;
    /// Nil while it is not known.
    virtual FolderItem picture(const std::string& page) const = 0;
    /// What a person must see of the picture to read the guide words; empty if unknown.
    virtual PageBox headStrip(const std::string& page) const = 0;
    /// The words in that strip, from left to right; empty if they are not known.
    virtual std::vector<PageBox> headWords(const std::string& page) const = 0;
    /// All that the words of the page may be; nullptr if it was not read.
    virtual const PageGuess* guess(const std::string& page) const = 0;
    virtual KeyRule keyRule() const = 0;
    virtual IndexOrder indexOrder() const = 0;

    /// The draft with other readings for the rows that no person has set, where the rows that are set ask for them.
    virtual Draft mended(const Draft& draft) = 0;
    /// Keeps the draft. Called at each change.
    virtual Result save(const Draft& draft) = 0;
    /// The draft as another program has written it since it was last saved or asked for; nullopt if none has.
    virtual std::optional<Draft> changedOutside() = 0;
};

} // namespace velmarin
