#include "reading/HeadReader.h"

#include "reading/PageLayout.h"

namespace velmarin {

struct HeadReader::Parts {};

HeadReader::HeadReader() : parts_(std::make_unique<Parts>()) {}
HeadReader::HeadReader(HeadReader&& other) noexcept = default;
HeadReader& HeadReader::operator=(HeadReader&& other) noexcept = default;
HeadReader::~HeadReader() = default;

} // namespace velmarin
