#pragma once

#include "platform/file_system.hpp"
#include "platform/posix/path_map.hpp"

namespace varnholt::platform::posix {

/// The file system object over POSIX calls. Paths are mapped here, on the way in and in errors on the way out; the
/// work is done by the files beside this one, which know system paths only.
class PosixFileSystem final : public FileSystem {
 public:
  /// The map must outlive this.
  explicit PosixFileSystem(PathMap& map) : map_(map) {}

  Result<ListingPtr> list(const std::string& folder) const override;
  Result<EntryInfo> info(const std::string& path) const override;
  bool fileExists(const std::string& path) const override;
  bool folderExists(const std::string& path) const override;
  bool sameEntry(const std::string& a, const std::string& b) const override;
  bool holdsPlaces(const std::string& folder) const override;
  Result<std::string> resolve(const std::string& path) const override;
  std::vector<Result<std::string>> resolveAll(const std::vector<std::string>& paths) const override;
  Result<Attributes> attributes(const std::string& path) const override;
  Result<std::uint64_t> fileSize(const std::string& path) const override;
  std::vector<FileFacts> fileFacts(const std::string& folder, const std::vector<std::string>& names) const override;
  std::vector<std::optional<Attributes>> fileAttributes(const std::string& folder,
                                                        const std::vector<std::string>& names) const override;
  Result<std::vector<std::uint64_t>> sizes(const std::vector<std::string>& paths,
                                           const Progress& progress) const override;
  Result<TreeSize> folderSize(const std::string& folder, const Progress& progress = {}) const override;
  Result<std::string> findFolder(const std::string& folder, unsigned levels, const FolderTest& takes,
                                 const std::string& after, const SearchProgress& progress = {}) const override;
  Result<std::vector<FoundFile>> findFiles(const std::string& folder, unsigned levels, const NameTest& takes,
                                           const SearchProgress& progress) const override;
  std::vector<Result<void>> deleteBelow(const std::string& root, const std::vector<std::string>& paths,
                                        const Progress& progress) override;
  Result<std::string> fileVersion(const std::string& path) const override;
  Result<std::string> programIcon(const std::string& path, std::uint32_t index) const override;
  Result<DriveInfo> volume(const std::string& path) const override;

  Result<std::string> readFile(const std::string& path, std::uint64_t limit = 64u << 20) const override;
  Result<std::string> readBeginning(const std::string& path, std::uint64_t most) const override;
  Result<void> writeFile(const std::string& path, std::string_view bytes) override;

  Result<void> copyFile(const std::string& from, const std::string& to, bool overwrite,
                        const Progress& progress = {}) override;
  Result<void> replaceFile(const std::string& from, const std::string& to, const Progress& progress = {}) override;
  Result<void> copyFolder(const std::string& from, const std::string& to, bool overwrite,
                          const FolderProgress& progress = {}, LeftOuts* leftOut = nullptr) override;
  Result<void> moveFile(const std::string& from, const std::string& to, const Progress& progress = {}) override;
  Result<void> renameOver(const std::string& from, const std::string& to) override;
  std::vector<NotRenamed> renameFiles(const std::string& folder, std::span<const NewName> names) override;
  std::vector<NotRenamed> checkRenames(const std::string& folder, std::span<const NewName> names) const override;
  Result<void> moveFolder(const std::string& from, const std::string& to) override;
  Result<void> deleteFile(const std::string& path, bool force) override;
  Result<void> deleteFolder(const std::string& path, bool force, const Progress& progress = {},
                            LeftOuts* leftOut = nullptr) override;
  BatchResults copyFiles(const std::string& folder, const std::vector<std::string>& names, const std::string& to,
                         std::uint64_t limit, const Progress& progress = {}) override;
  BatchResults moveFiles(const std::string& folder, const std::vector<std::string>& names, const std::string& to,
                         const Progress& progress = {}) override;
  BatchResults deleteFiles(const std::string& folder, const std::vector<std::string>& names,
                           const Progress& progress = {}) override;
  Result<void> deleteEmptyFolder(const std::string& path) override;
  Result<void> createFolder(const std::string& path) override;
  Result<void> setAttributes(const std::string& path, Attributes attributes) override;
  std::vector<Result<bool>> setAttributesOf(const std::string& folder, const std::vector<std::string>& names,
                                            Attributes attributes, std::span<const Attributes> spared) override;
  Result<void> resetAttributes(const std::string& path) override;
  Result<void> setModified(const std::string& path, const Date& date) override;
  Result<void> writeOut(const std::string& path, bool wait, const Progress& progress = {}) override;

 private:
  using RenameBatch = std::vector<NotRenamed> (*)(const std::string& folder, std::span<const NewName> names);
  /// Runs a batch call with system names; what is no name of an entry is refused here.
  std::vector<NotRenamed> withSystemNames(RenameBatch batch, const std::string& folder,
                                          std::span<const NewName> names) const;
  /// Adds what a call over a tree left out, in program form, for callers who want it.
  void tell(LeftOuts found, LeftOuts* leftOut) const;
  /// The path of an error back in program form.
  Error told(Error error) const;
  template <class T>
  Result<T> told(Result<T> result) const {
    return result ? std::move(result) : Result<T>(told(result.error()));
  }
  /// System form of a path that is to be changed or removed itself: not a drive's folder, not "." or "..".
  Result<std::string> changeable(const std::string& path) const;
  /// System forms of source and target; a target with closing backslash takes the source's name.
  Result<std::pair<std::string, std::string>> sourceAndTarget(const std::string& from, const std::string& to) const;

  PathMap& map_;
};

}  // namespace varnholt::platform::posix
