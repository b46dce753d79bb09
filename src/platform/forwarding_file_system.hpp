#pragma once

#include "platform/file_system.hpp"
#include "platform/paths.hpp"

#include <algorithm>
#include <optional>

namespace varnholt::platform {

/// Passes every call on. A test derives from it and overrides only what it disturbs. The batch calls go by the single
/// calls of the same object, one file after the other, so that what is disturbed in those is met in batches too.
class ForwardingFileSystem : public FileSystem {
 public:
  explicit ForwardingFileSystem(FileSystem& base) : base_(base) {}

  Result<ListingPtr> list(const std::string& folder) const override { return base_.list(folder); }
  Result<EntryInfo> info(const std::string& path) const override { return base_.info(path); }
  bool fileExists(const std::string& path) const override { return base_.fileExists(path); }
  bool folderExists(const std::string& path) const override { return base_.folderExists(path); }
  bool sameEntry(const std::string& a, const std::string& b) const override { return base_.sameEntry(a, b); }
  bool holdsPlaces(const std::string& folder) const override { return base_.holdsPlaces(folder); }
  Result<std::string> resolve(const std::string& path) const override { return base_.resolve(path); }
  Result<Attributes> attributes(const std::string& path) const override { return base_.attributes(path); }
  Result<std::uint64_t> fileSize(const std::string& path) const override { return base_.fileSize(path); }
  std::vector<FileFacts> fileFacts(const std::string& folder, const std::vector<std::string>& names) const override {
    return base_.fileFacts(folder, names);
  }
  std::vector<std::optional<Attributes>> fileAttributes(const std::string& folder,
                                                        const std::vector<std::string>& names) const override {
    return base_.fileAttributes(folder, names);
  }
  Result<std::vector<std::uint64_t>> sizes(const std::vector<std::string>& paths,
                                           const Progress& progress) const override {
    return base_.sizes(paths, progress);
  }
  Result<TreeSize> folderSize(const std::string& folder, const Progress& progress = {}) const override {
    return base_.folderSize(folder, progress);
  }
  Result<std::vector<FoundFile>> findFiles(const std::string& folder, unsigned levels, const NameTest& takes,
                                           const SearchProgress& progress = {}) const override {
    return base_.findFiles(folder, levels, takes, progress);
  }
  Result<std::string> findFolder(const std::string& folder, unsigned levels, const FolderTest& takes,
                                 const std::string& after, const SearchProgress& progress = {}) const override {
    return base_.findFolder(folder, levels, takes, after, progress);
  }
  std::vector<Result<void>> deleteBelow(const std::string& root, const std::vector<std::string>& paths,
                                        const Progress& progress = {}) override {
    return base_.deleteBelow(root, paths, progress);
  }
  Result<std::string> fileVersion(const std::string& path) const override { return base_.fileVersion(path); }
  Result<std::string> programIcon(const std::string& path, std::uint32_t index) const override {
    return base_.programIcon(path, index);
  }
  Result<DriveInfo> volume(const std::string& path) const override { return base_.volume(path); }
  Result<std::string> readFile(const std::string& path, std::uint64_t limit = 64u << 20) const override {
    return base_.readFile(path, limit);
  }
  Result<std::string> readBeginning(const std::string& path, std::uint64_t most) const override {
    return base_.readBeginning(path, most);
  }
  Result<void> writeFile(const std::string& path, std::string_view bytes) override {
    return base_.writeFile(path, bytes);
  }
  Result<void> copyFile(const std::string& from, const std::string& to, bool overwrite,
                        const Progress& progress = {}) override {
    return base_.copyFile(from, to, overwrite, progress);
  }
  Result<void> copyFolder(const std::string& from, const std::string& to, bool overwrite,
                          const FolderProgress& progress = {}, LeftOuts* leftOut = nullptr) override {
    return base_.copyFolder(from, to, overwrite, progress, leftOut);
  }
  Result<void> replaceFile(const std::string& from, const std::string& to, const Progress& progress = {}) override {
    return base_.replaceFile(from, to, progress);
  }
  Result<void> moveFile(const std::string& from, const std::string& to, const Progress& progress = {}) override {
    return base_.moveFile(from, to, progress);
  }
  Result<void> renameOver(const std::string& from, const std::string& to) override {
    return base_.renameOver(from, to);
  }
  std::vector<NotRenamed> renameFiles(const std::string& folder, std::span<const NewName> names) override {
    return base_.renameFiles(folder, names);
  }
  std::vector<NotRenamed> checkRenames(const std::string& folder, std::span<const NewName> names) const override {
    return base_.checkRenames(folder, names);
  }
  Result<void> moveFolder(const std::string& from, const std::string& to) override {
    return base_.moveFolder(from, to);
  }
  Result<void> deleteFile(const std::string& path, bool force) override { return base_.deleteFile(path, force); }
  Result<void> deleteFolder(const std::string& path, bool force, const Progress& progress = {},
                            LeftOuts* leftOut = nullptr) override {
    return base_.deleteFolder(path, force, progress, leftOut);
  }
  Result<void> deleteEmptyFolder(const std::string& path) override { return base_.deleteEmptyFolder(path); }
  Result<void> createFolder(const std::string& path) override { return base_.createFolder(path); }
  Result<void> setAttributes(const std::string& path, Attributes attributes) override {
    return base_.setAttributes(path, attributes);
  }
  Result<void> resetAttributes(const std::string& path) override { return base_.resetAttributes(path); }
  Result<void> setModified(const std::string& path, const Date& date) override { return base_.setModified(path, date); }
  Result<void> writeOut(const std::string& path, bool wait, const Progress& progress = {}) override {
    return base_.writeOut(path, wait, progress);
  }

  BatchResults copyFiles(const std::string& folder, const std::vector<std::string>& names, const std::string& to,
                         std::uint64_t limit, const Progress& progress = {}) override {
    return oneByOne(folder, names, progress, [&](const EntryInfo& file, const std::string& path) -> Tried {
      const std::string target = paths::join(to, file.name);
      if (file.size > limit || !isFree(target)) return {};
      return copyFile(path, target, false);
    });
  }
  BatchResults moveFiles(const std::string& folder, const std::vector<std::string>& names, const std::string& to,
                         const Progress& progress = {}) override {
    return oneByOne(folder, names, progress, [&](const EntryInfo& file, const std::string& path) -> Tried {
      const std::string target = paths::join(to, file.name);
      if (!isFree(target)) return {};
      return moveFile(path, target);
    });
  }
  BatchResults deleteFiles(const std::string& folder, const std::vector<std::string>& names,
                           const Progress& progress = {}) override {
    return oneByOne(folder, names, progress, [&](const EntryInfo& file, const std::string& path) -> Tried {
      if (file.attributes != attribute::Archive) return {};
      return deleteFile(path, false);
    });
  }
  std::vector<Result<bool>> setAttributesOf(const std::string& folder, const std::vector<std::string>& names,
                                            Attributes attributes, std::span<const Attributes> spared) override {
    std::vector<Result<bool>> results;
    for (const std::string& name : names) {
      const std::string path = paths::join(folder, name);
      const auto present = this->attributes(path);
      if (!present) {
        results.emplace_back(present.error());
      } else if (std::ranges::find(spared, *present) != spared.end()) {
        results.emplace_back(false);
      } else {
        const auto set = setAttributes(path, attributes);
        results.push_back(set ? Result<bool>(true) : set.error());
      }
    }
    return results;
  }

 protected:
  FileSystem& base_;

 private:
  using Tried = std::optional<Result<void>>;

  bool isFree(const std::string& path) const { return !fileExists(path) && !folderExists(path); }

  /// `step` gives nothing for a file that is no plain case.
  template <class Step>
  BatchResults oneByOne(const std::string& folder, const std::vector<std::string>& names, const Progress& progress,
                        const Step& step) const {
    BatchResults results;
    for (const std::string& name : names) {
      const std::string path = paths::join(folder, name);
      const auto file = info(path);
      if (!file || file->isLink || file->kind != EntryKind::File) break;
      const Tried tried = step(*file, path);
      if (!tried) break;
      results.push_back(*tried ? Result<std::uint64_t>(file->size) : (*tried).error());
      if (!*tried || (progress && !progress(results.size()))) break;
    }
    return results;
  }
};

}  // namespace varnholt::platform
