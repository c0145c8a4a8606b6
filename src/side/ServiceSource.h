#pragma once

#include "side/LookUpSource.h"
#include "side/SourceContext.h"

namespace velmarin {

/// The dictionary service as a source: its definitions, or that it has none, under a banner at the end of the text.
class ServiceSource : public LookUpSource {
  public:
    explicit ServiceSource(const SourceContext& context) : context_(context) {}

    void lookUp(const std::string& word) override;

  private:
    SourceContext context_;
};

} // namespace velmarin
