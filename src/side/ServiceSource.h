#pragma once

#include "side/LookUpSource.h"
#include "side/SourceParts.h"

namespace velmarin {

/// The dictionary service as a source: its definitions, or that it has none, under a banner at the end of the text.
class ServiceSource : public LookUpSource {
  public:
    explicit ServiceSource(const SourceParts& parts) : parts_(parts) {}

    void lookUp(const std::string& word) override;

  private:
    SourceParts parts_;
};

} // namespace velmarin
