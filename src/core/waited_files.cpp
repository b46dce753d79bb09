#include "core/waited_files.hpp"

#include "controls/message_loop.hpp"
#include "platform/file_system.hpp"

#include <thread>
#include <type_traits>

namespace varnholt::core {
namespace {

class WaitedFiles : public platform::FileSystem {
 public:
  WaitedFiles(platform::FileSystem& files, controls::MessageLoop& loop) : files_(files), loop_(loop) {}

  platform::Result<platform::ListingPtr> list(const std::string& folder) const override {
    return waited([&] { return files_.list(folder); });
  }
  platform::Result<platform::EntryInfo> info(const std::string& path) const override {
    return waited([&] { return files_.info(path); });
  }
  bool fileExists(const std::string& path) const override {
    return waited([&] { return files_.fileExists(path); });
  }
  bool folderExists(const std::string& path) const override {
    return waited([&] { return files_.folderExists(path); });
  }
  bool sameEntry(const std::string& a, const std::string& b) const override {
    return waited([&] { return files_.sameEntry(a, b); });
  }
  bool holdsPlaces(const std::string& folder) const override {
    return waited([&] { return files_.holdsPlaces(folder); });
  }
  platform::Result<std::string> resolve(const std::string& path) const override {
    return waited([&] { return files_.resolve(path); });
  }
  std::vector<platform::Result<std::string>> resolveAll(const std::vector<std::string>& paths) const override {
    return waited([&] { return files_.resolveAll(paths); });
  }
  platform::Result<platform::Attributes> attributes(const std::string& path) const override {
    return waited([&] { return files_.attributes(path); });
  }
  platform::Result<std::uint64_t> fileSize(const std::string& path) const override {
    return waited([&] { return files_.fileSize(path); });
  }
  std::vector<platform::FileFacts> fileFacts(const std::string& folder,
                                             const std::vector<std::string>& names) const override {
    return waited([&] { return files_.fileFacts(folder, names); });
  }
  std::vector<std::optional<platform::Attributes>>
  fileAttributes(const std::string& folder, const std::vector<std::string>& names) const override {
    return waited([&] { return files_.fileAttributes(folder, names); });
  }
  platform::Result<std::vector<std::uint64_t>> sizes(const std::vector<std::string>& paths,
                                                     const platform::Progress& progress) const override {
    return waited([&] { return files_.sizes(paths, progress); });
  }
  platform::Result<platform::TreeSize> folderSize(const std::string& folder,
                                                  const platform::Progress& progress) const override {
    return waited([&] { return files_.folderSize(folder, progress); });
  }
  platform::Result<std::vector<platform::FoundFile>>
  findFiles(const std::string& folder, unsigned levels, const platform::NameTest& takes,
            const platform::SearchProgress& progress) const override {
    return waited([&] { return files_.findFiles(folder, levels, takes, progress); });
  }
  platform::Result<std::string> findFolder(const std::string& folder, unsigned levels,
                                           const platform::FolderTest& takes, const std::string& after,
                                           const platform::SearchProgress& progress) const override {
    return waited([&] { return files_.findFolder(folder, levels, takes, after, progress); });
  }
  std::vector<platform::Result<void>> deleteBelow(const std::string& root, const std::vector<std::string>& paths,
                                                  const platform::Progress& progress) override {
    return waited([&] { return files_.deleteBelow(root, paths, progress); });
  }
  platform::Result<std::string> fileVersion(const std::string& path) const override {
    return waited([&] { return files_.fileVersion(path); });
  }
  platform::Result<std::string> programIcon(const std::string& path, std::uint32_t index) const override {
    return waited([&] { return files_.programIcon(path, index); });
  }
  platform::Result<platform::DriveInfo> volume(const std::string& path) const override {
    return waited([&] { return files_.volume(path); });
  }
  platform::Result<std::string> readFile(const std::string& path, std::uint64_t limit) const override {
    return waited([&] { return files_.readFile(path, limit); });
  }
  platform::Result<std::string> readBeginning(const std::string& path, std::uint64_t most) const override {
    return waited([&] { return files_.readBeginning(path, most); });
  }
  platform::Result<void> writeFile(const std::string& path, std::string_view bytes) override {
    return waited([&] { return files_.writeFile(path, bytes); });
  }
  platform::Result<void> copyFile(const std::string& from, const std::string& to, bool overwrite,
                                  const platform::Progress& progress) override {
    return waited([&] { return files_.copyFile(from, to, overwrite, progress); });
  }
  platform::Result<void> replaceFile(const std::string& from, const std::string& to,
                                     const platform::Progress& progress) override {
    return waited([&] { return files_.replaceFile(from, to, progress); });
  }
  platform::Result<void> copyFolder(const std::string& from, const std::string& to, bool overwrite,
                                    const platform::FolderProgress& progress, platform::LeftOuts* leftOut) override {
    return waited([&] { return files_.copyFolder(from, to, overwrite, progress, leftOut); });
  }
  platform::Result<void> moveFile(const std::string& from, const std::string& to,
                                  const platform::Progress& progress) override {
    return waited([&] { return files_.moveFile(from, to, progress); });
  }
  platform::Result<void> moveFolder(const std::string& from, const std::string& to) override {
    return waited([&] { return files_.moveFolder(from, to); });
  }
  platform::Result<void> deleteFile(const std::string& path, bool force) override {
    return waited([&] { return files_.deleteFile(path, force); });
  }
  platform::Result<void> deleteFolder(const std::string& path, bool force, const platform::Progress& progress,
                                      platform::LeftOuts* leftOut) override {
    return waited([&] { return files_.deleteFolder(path, force, progress, leftOut); });
  }
  platform::BatchResults copyFiles(const std::string& folder, const std::vector<std::string>& names,
                                   const std::string& to, std::uint64_t limit,
                                   const platform::Progress& progress) override {
    return waited([&] { return files_.copyFiles(folder, names, to, limit, progress); });
  }
  platform::BatchResults moveFiles(const std::string& folder, const std::vector<std::string>& names,
                                   const std::string& to, const platform::Progress& progress) override {
    return waited([&] { return files_.moveFiles(folder, names, to, progress); });
  }
  platform::BatchResults deleteFiles(const std::string& folder, const std::vector<std::string>& names,
                                     const platform::Progress& progress) override {
    return waited([&] { return files_.deleteFiles(folder, names, progress); });
  }
  platform::Result<void> renameOver(const std::string& from, const std::string& to) override {
    return waited([&] { return files_.renameOver(from, to); });
  }
  std::vector<platform::NotRenamed> renameFiles(const std::string& folder,
                                                std::span<const platform::NewName> names) override {
    return waited([&] { return files_.renameFiles(folder, names); });
  }
  std::vector<platform::NotRenamed> checkRenames(const std::string& folder,
                                                 std::span<const platform::NewName> names) const override {
    return waited([&] { return files_.checkRenames(folder, names); });
  }
  platform::Result<void> deleteEmptyFolder(const std::string& path) override {
    return waited([&] { return files_.deleteEmptyFolder(path); });
  }
  platform::Result<void> createFolder(const std::string& path) override {
    return waited([&] { return files_.createFolder(path); });
  }
  platform::Result<void> setAttributes(const std::string& path, platform::Attributes attributes) override {
    return waited([&] { return files_.setAttributes(path, attributes); });
  }
  std::vector<platform::Result<bool>> setAttributesOf(const std::string& folder, const std::vector<std::string>& names,
                                                      platform::Attributes attributes,
                                                      std::span<const platform::Attributes> spared) override {
    return waited([&] { return files_.setAttributesOf(folder, names, attributes, spared); });
  }
  platform::Result<void> resetAttributes(const std::string& path) override {
    return waited([&] { return files_.resetAttributes(path); });
  }
  platform::Result<void> setModified(const std::string& path, const platform::Date& date) override {
    return waited([&] { return files_.setModified(path, date); });
  }
  platform::Result<void> writeOut(const std::string& path, bool wait, const platform::Progress& progress) override {
    return waited([&] { return files_.writeOut(path, wait, progress); });
  }

 private:
  template <class Call>
  std::invoke_result_t<const Call&> waited(const Call& call) const {
    if (std::this_thread::get_id() != window_) return call();
    return loop_.ask(call);
  }

  platform::FileSystem& files_;
  controls::MessageLoop& loop_;
  std::thread::id window_ = std::this_thread::get_id();
};

}  // namespace

std::unique_ptr<platform::FileSystem> makeWaitedFiles(platform::FileSystem& files, controls::MessageLoop& loop) {
  return std::make_unique<WaitedFiles>(files, loop);
}

}  // namespace varnholt::core
