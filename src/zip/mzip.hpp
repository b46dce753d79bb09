#pragma once

#include "core/program.hpp"
#include "platform/shared_library.hpp"
#include "zip/czip.hpp"

#include <optional>
#include <string>

namespace varnholt::zip {

/// Drives the library: one run of archives from open() to close().
class mZip {
 public:
  explicit mZip(const core::Program& program) : program_(program) {}
  ~mZip() { close(); }

  /// The library beside the program, as a program path.
  std::string libraryPath() const;
  /// The run of batches is over.
  void close();
  /// Adds what the object names to its archive. Made for a long call: its events come on that call's thread. Nothing:
  /// it could not even be tried.
  std::optional<std::int32_t> Zip(cZip& zip);

  /// A file spec as the library takes it: where names below the drive begin is marked.
  std::string fileSpec(const std::string& path) const;

 private:
  const core::Program& program_;
  std::optional<platform::SharedLibrary> library_;
};

}  // namespace varnholt::zip
