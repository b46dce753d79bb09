#include "support/testing.hpp"

namespace varnholt::test {

constinit const std::string_view SourceFolder = VARNHOLT_SOURCE_DIR;

}  // namespace varnholt::test
