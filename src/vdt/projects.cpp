#include "vdt/projects.hpp"

#include "core/program_files.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

namespace varnholt::vdt {
namespace {

namespace paths = platform::paths;

constexpr const char* DefaultProject = "Default.Pro";
constexpr std::string_view Extension = "pro";
/// What a start loads within a moment. A longer file is kept under another name, as one that cannot be read to its end.
constexpr std::size_t MostPointers = 500'000;

}  // namespace

std::string Projects::folder() const {
  return core::program_file::path(program_.platform, core::program_file::VDT_Projects);
}

std::string Projects::path(const std::string& name) const { return paths::join(folder(), name); }

void Projects::makeFolder() {
  if (!program_.files().folderExists(folder())) (void)program_.files().createFolder(folder());
}

std::vector<std::string> Projects::names() const {
  std::vector<std::string> found;
  const auto listing = program_.files().list(folder());
  if (!listing) return found;
  for (const platform::Entry& entry : (*listing)->files())
    if (platform::foldCase(paths::extension(entry.name)) == Extension) found.emplace_back(entry.name);
  return found;
}

// The settings may hold anything; a name leads to no other folder.
const std::string& Projects::current() {
  std::string& name = program_.init.VDTViewState;
  if (name.empty() || name.find_first_of("\\/") != std::string::npos) name = DefaultProject;
  return name;
}

Projects::Stored Projects::inList() {
  Stored project{current(), list_.lines()};
  if (project.lines.empty()) project.lines.emplace_back();
  return project;
}

platform::Result<void> Projects::VdtProjectSave() {
  makeFolder();
  Stored project = inList();
  auto saved = kept_.writeLines(path(project.name), project.lines);
  if (saved) stored_ = std::move(project);
  return saved;
}

platform::Result<void> Projects::saveChanges() {
  const bool isStored = stored_ == inList() && program_.files().fileExists(path(current()));
  return isStored ? platform::Result<void>() : VdtProjectSave();
}

std::string Projects::notSaved(const platform::Error& error) {
  return "Cannot Save Project !\r" + current() + " :  " + error.text;
}

void Projects::VdtProjectLoad() {
  const std::string file = path(current());
  std::vector<std::string> lines = kept_.readLines(file);
  if (lines.size() > MostPointers) {
    lines.resize(MostPointers);
    kept_.foundCutOff(file);
  }
  std::vector<Pointer> pointers;
  for (const std::string& line : lines)
    if (auto pointer = pointerOf(line)) pointers.push_back(*std::move(pointer));
  list_.take(std::move(pointers));
  // Lines that make no pointer are not written again.
  if (list_.lines() == lines) noteStored();
  targets_.ask(true);
  (void)kept_.setAside(file);
}

}  // namespace varnholt::vdt
