#include "vnzip/vnzip.h"

#include "vnzip/archive.hpp"

#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <optional>

#define EXPORTED extern "C" __attribute__((visibility("default")))

namespace {

using namespace varnholt::vnzip;

constexpr std::size_t MostTold = 1024;

struct State {
  VnUserFunctions functions{};
  VnOptions options{};
  std::string root;
  std::optional<ArchiveRun> run;
};

State& state() {
  static State only;
  return only;
}

/// The buffer is the callee's to write in.
std::string told(const std::string& text) { return text.substr(0, MostTold - 1); }

void tellLeftOut(const std::string& path, std::string_view why) {
  if (!state().functions.print) return;
  std::string line = told(path + "\t" + std::string(why));
  state().functions.print(line.data(), static_cast<uint32_t>(line.size()));
}

bool goesOn(const std::string& name) {
  if (!state().functions.service) return true;
  std::string text = told(name);
  return state().functions.service(text.data(), static_cast<uint32_t>(text.size())) != 1;
}

/// What changes an entry, or the archive, in a way that is not built.
bool asksTooMuch(const VnOptions& options) {
  return options.encrypt || options.crLfToLf || options.lfToCrLf || options.deleteEntries || options.move ||
         options.repair || options.comment;
}

std::string resolved(const std::string& path, const std::string& root) {
  if (path.starts_with('/') || root.empty()) return path;
  return root + (root.ends_with('/') ? "" : "/") + path;
}

int32_t archive(const std::string& name, const std::vector<std::string>& fileSpecs) {
  State& now = state();
  const std::string path = resolved(name, now.root);
  if (!path.starts_with('/')) return VnBadRequest;
  if (asksTooMuch(now.options)) return VnNotSupported;
  if (!now.run || now.run->path() != path) now.run.emplace(path, tellLeftOut);
  const Taking taking{now.root, now.options.junkNames != 0, now.options.systemAndHidden != 0, now.options.recurse != 0};
  const Existing existing = now.options.freshen  ? Existing::Freshen
                            : now.options.update ? Existing::Update
                                                 : Existing::Replace;
  switch (now.run->add(taking, existing, fileSpecs, goesOn)) {
  case ArchiveRun::End::Done:
    return VnSuccess;
  case ArchiveRun::End::Stopped:
    return VnStopped;
  case ArchiveRun::End::Failed:
    break;
  }
  return VnFailed;
}

void end() {
  auto& run = state().run;
  try {
    if (run) run->end();
  } catch (...) {  // the archive is as the last batch made it
  }
  run.reset();
}

}  // namespace

EXPORTED int32_t ZpInit(const VnUserFunctions* functions) {
  if (!functions) return VnBadRequest;
  state().functions = *functions;
  return VnSuccess;
}

EXPORTED int32_t ZpSetOptions(const VnOptions* options) {
  if (!options) return VnBadRequest;
  state().options = *options;
  state().root = options->rootDirectory ? options->rootDirectory : "";
  return VnSuccess;
}

EXPORTED int32_t ZpGetOptions(VnOptions* options) {
  if (!options) return VnBadRequest;
  *options = state().options;
  options->rootDirectory = state().root.c_str();
  return VnSuccess;
}

EXPORTED int32_t ZpArchive(int32_t count, const char* name, const char* const* fileSpecs) {
  if (!name || count < 0 || count >= VnSlots || (count > 0 && !fileSpecs)) return VnBadRequest;
  if (count == 0) {
    end();
    return VnSuccess;
  }
  std::vector<std::string> wanted;
  for (int32_t at = 0; at < count; ++at)
    if (fileSpecs[at] && *fileSpecs[at]) wanted.emplace_back(fileSpecs[at]);
  // Nothing may be thrown out of a library of plain calls.
  try {
    return archive(name, wanted);
  } catch (...) {
    state().run.reset();
    return VnFailed;
  }
}
