#pragma once

#include "platform/attributes.hpp"
#include "platform/date.hpp"
#include "platform/drives.hpp"
#include "platform/result.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::platform {

enum class EntryKind : std::uint8_t {
  File,
  Folder,
  Special,  ///< pipe, socket or device: listed, never opened
};

/// One entry of a folder. A link is told as what it points to, with `isLink` set; a link that leads nowhere is a
/// File with `isDangling` set and its own dates and size.
struct Entry {
  std::string_view name;             ///< program form; lives as long as the Listing it came from
  std::uint64_t size = 0;            ///< bytes; 0 for folders
  Date modified, created, accessed;  ///< created is the birth time, or modified where the volume has none
  Attributes attributes : 24 = 0;    ///< the words of DOS attributes go no further; see attribute
  EntryKind kind : 2 = EntryKind::File;
  bool isLink : 1 = false;
  bool isDangling : 1 = false;
  bool hasDates : 1 = true;    ///< false when the entry could not be asked (no permission, vanished)
  bool isIndexed : 1 = false;  ///< attributes are stored, and they do not forbid an indexing service
};
static_assert(sizeof(Entry) == 64, "a folder may hold a million of them");

/// One folder, read in one pass. Folders and files apart, each by lowered name and then by bytes.
/// Owns the bytes of the names; may hold 100,000 entries, so it is shared and not copied.
class Listing {
 public:
  virtual ~Listing() = default;
  const std::vector<Entry>& folders() const { return folders_; }
  const std::vector<Entry>& files() const { return files_; }

 protected:
  std::vector<Entry> folders_, files_;
};
using ListingPtr = std::shared_ptr<const Listing>;

/// Facts of one path; as Entry, with a name of its own.
struct EntryInfo {
  std::string name;
  std::uint64_t size = 0;
  Date modified, created, accessed;
  Attributes attributes = 0;
  EntryKind kind = EntryKind::File;
  bool isLink = false;
  bool isDangling = false;
  bool isIndexed = false;
};

/// Told the bytes done so far of the running call; gives false to stop it (ErrorCode::Stopped).
/// Called on the thread that runs the call, at most every few megabytes or entries. May be empty.
using Progress = std::function<bool(std::uint64_t bytesDone)>;

/// How far the copy of a folder is.
struct FolderAdvance {
  std::uint64_t bytes = 0;  ///< of the entries that are done, those of files that were left out too
  double share = 0;         ///< of its entries, between 0 and 1: each counts like its neighbours, whatever it holds
};
/// As Progress. Told a last time, the answer unheard, when the call is over: then its bytes are the folder's size.
using FolderProgress = std::function<bool(const FolderAdvance&)>;

/// What a call over a whole tree passed over and left as it was, by path: the source's, or the target's where that was
/// in the way. One entry for a folder that was left out with all that it holds.
using LeftOuts = std::vector<Error>;

/// What a tree holds, links counted as entries and not followed, mounted volumes below not entered.
struct TreeSize {
  std::uint64_t bytes = 0;    ///< sum of the sizes of its regular files
  std::uint64_t files = 0;    ///< everything that is no folder
  std::uint64_t folders = 0;  ///< not counting the tree's own root
  bool exact = true;          ///< false when a folder below could not be read
};

/// A file that a search has found, told as what it is: a link with its own size and dates.
struct FoundFile {
  std::string path;
  std::uint64_t size = 0;
  Date modified, created, accessed;
};
/// Whether a search takes a file of that name; its folder lies `level` folders below the one that is searched, which is
/// level 0. Called on several threads at once.
using NameTest = std::function<bool(std::string_view name, unsigned level)>;
/// How far a search is: the folder that is read just now, and the share of the folders known so far.
struct SearchAdvance {
  std::string folder;
  double share = 0;
};
/// As Progress.
using SearchProgress = std::function<bool(const SearchAdvance&)>;

/// What a compare asks of one file; links as what they lead to, those that lead nowhere as themselves.
struct FileFacts {
  std::uint64_t size = 0;  ///< bytes
  Date modified;
  bool isThere = false;   ///< as FileSystem::fileExists tells it, and for an entry that may not be asked
  bool hasDates = false;  ///< false too for one that could not be asked, with size 0
};

/// Whether a search takes the folder of that path. Called on several threads at once.
using FolderTest = std::function<bool(const std::string& path)>;

/// What a batch call did with the first of its files, in their order: the bytes of each, or why it failed. Files behind
/// these were not touched.
using BatchResults = std::vector<Result<std::uint64_t>>;

/// A file of a folder and the name that it gets there.
struct NewName {
  std::string from, to;
};

/// A file that keeps its name, by its number among those that were to be renamed, and why.
struct NotRenamed {
  std::size_t index = 0;
  Error error;
};

/// The file system object. All paths in program form, with or without closing backslash. No call throws, none
/// blocks on a pipe or device. Case is the volume's own: paths are used exactly, except by resolve().
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // --- Looking -------------------------------------------------------------------------------------------------

  /// The folder's entries. NotFound, NotAFolder, AccessDenied, InvalidPath. An entry that vanishes while the
  /// folder is read is left out; one that may not be asked is listed with hasDates false.
  virtual Result<ListingPtr> list(const std::string& folder) const = 0;
  /// Facts of one path; links as in Entry.
  virtual Result<EntryInfo> info(const std::string& path) const = 0;
  /// True for anything that is no folder, a dangling link included. A link to a folder is a folder.
  virtual bool fileExists(const std::string& path) const = 0;
  virtual bool folderExists(const std::string& path) const = 0;
  /// True when both paths lead to one entry (device and inode), however they are spelled.
  virtual bool sameEntry(const std::string& a, const std::string& b) const = 0;
  /// True when the folder is, or has anywhere below, the folder of a drive or the user's home, by whatever drive
  /// letters and links it is named; also when that cannot be told.
  virtual bool holdsPlaces(const std::string& folder) const = 0;
  /// A typed or remembered path as the disk spells it: part by part, exactly first, else the first entry equal when
  /// lowered; a trailing point is ignored where no exact entry exists. NotFound when a part has no match.
  virtual Result<std::string> resolve(const std::string& path) const = 0;
  /// The same for many, in their order; quicker where folders have to be searched.
  virtual std::vector<Result<std::string>> resolveAll(const std::vector<std::string>& paths) const {
    std::vector<Result<std::string>> resolved;
    for (const std::string& path : paths)
      resolved.push_back(resolve(path));
    return resolved;
  }
  virtual Result<Attributes> attributes(const std::string& path) const = 0;
  /// Bytes of a file, of what a link leads to; 0 for a folder. The quick way where nothing else is asked.
  virtual Result<std::uint64_t> fileSize(const std::string& path) const = 0;
  /// The facts of many files of one folder, in their order; a folder of a name counts as not there. Quicker than one by
  /// one, and than a listing, which asks for attributes too.
  virtual std::vector<FileFacts> fileFacts(const std::string& folder, const std::vector<std::string>& names) const = 0;
  /// attributes() of many files of one folder, in their order, much quicker; nothing for what is no file or cannot be
  /// asked.
  virtual std::vector<std::optional<Attributes>> fileAttributes(const std::string& folder,
                                                                const std::vector<std::string>& names) const = 0;
  /// Bytes and counts below a folder. NotFound, NotAFolder, Stopped; folders that cannot be read make it inexact.
  virtual Result<TreeSize> folderSize(const std::string& folder, const Progress& progress = {}) const = 0;
  /// Bytes of each of these files and folders, a folder's as folderSize() tells them, but that a file of several names
  /// (hard links) counts once, for the first of these paths that leads to it. 0 for what is gone or cannot be read.
  /// `progress` is told how many of the paths are done, on any thread, by one at a time. Stopped.
  virtual Result<std::vector<std::uint64_t>> sizes(const std::vector<std::string>& paths,
                                                   const Progress& progress = {}) const = 0;
  /// The files whose names a test takes, in a folder and so many levels of folders (1: itself alone), level by level
  /// and in the order of listings within each. Links are files unless they lead to a folder, and are not entered;
  /// neither are mounted volumes. Folders that cannot be read hold nothing. Stopped, it gives what was found until
  /// then. NotFound, NotAFolder.
  virtual Result<std::vector<FoundFile>> findFiles(const std::string& folder, unsigned levels, const NameTest& takes,
                                                   const SearchProgress& progress = {}) const = 0;
  /// The first folder that a test takes, so many levels of folders below another (1: those that lie in it), each before
  /// what lies in it and otherwise in the order of listings; with `after`, the first one behind that. The empty text
  /// when there is none. Links and what they lead to are passed over, mounted volumes not entered, and folders that
  /// cannot be read hold nothing. What follows may have been read already, by other threads. Stopped, NotFound,
  /// NotAFolder.
  virtual Result<std::string> findFolder(const std::string& folder, unsigned levels, const FolderTest& takes,
                                         const std::string& after, const SearchProgress& progress = {}) const = 0;
  /// "a.b.c.d" from the version resource of a Windows program or library; the empty text for any other file,
  /// and for names that no program has (paths::isProgramName), which are not even looked for.
  virtual Result<std::string> fileVersion(const std::string& path) const = 0;
  /// The icon number `index`, counted from 0, of a Windows program or library, as the bytes of an icon file (ICO).
  /// NotFound when it has none, NotRegular for pipes and devices.
  virtual Result<std::string> programIcon(const std::string& path, std::uint32_t index) const = 0;
  /// The volume that holds the path (which need not be a drive root).
  virtual Result<DriveInfo> volume(const std::string& path) const = 0;

  // --- Text and data files of our own ----------------------------------------------------------------------------

  /// The whole file, at most `limit` bytes (TooLarge beyond). NotRegular for pipes and devices.
  virtual Result<std::string> readFile(const std::string& path, std::uint64_t limit = 64u << 20) const = 0;
  /// The first `most` bytes of the file, or all that it has. NotRegular for pipes and devices.
  virtual Result<std::string> readBeginning(const std::string& path, std::uint64_t most) const = 0;
  /// Replaces or makes the file in one step: a reader, or the next start after a power cut, finds the old bytes or
  /// the new ones. A link is followed, so that the file it names is replaced and the link stays.
  virtual Result<void> writeFile(const std::string& path, std::string_view bytes) = 0;

  // --- Changing --------------------------------------------------------------------------------------------------

  /// Copies one file, with modified time, attributes, permissions and extended attributes; a link is copied as a
  /// link. A `to` ending in a backslash is a folder and takes the source's name. With `overwrite` a target is
  /// replaced in one step; it fails on a target with read-only, hidden or system (ReadOnlyTarget), on itself
  /// (SameEntry), without `overwrite` on any target (AlreadyThere). On failure the old target is untouched and no
  /// temporary file is left.
  virtual Result<void> copyFile(const std::string& from, const std::string& to, bool overwrite,
                                const Progress& progress = {}) = 0;
  /// The same over a target that read-only, hidden or system protects: who calls this has the user's word for it. The
  /// protection goes in the one step that puts the new file into place; until then, and on failure, it stands.
  virtual Result<void> replaceFile(const std::string& from, const std::string& to, const Progress& progress = {}) = 0;
  // The calls over a whole tree pass over what they cannot do and go on with the rest. They succeed only when nothing
  // was left out; else they fail with the first of it, and add all of it to `leftOut`. They give up only where the rest
  // can but fail too (NoSpace, NotReady), which the last of `leftOut` tells, or when Stopped.
  /// Copies a tree, merging into a folder that exists, with links as links. Left out are special files, what cannot be
  /// read, targets that are there without `overwrite`, targets protected as for copyFile, and what vanishes meanwhile.
  /// IntoItself when `to` lies in `from`. Stopped, a folder that the call has made is taken away again; what was merged
  /// into one that existed stays.
  virtual Result<void> copyFolder(const std::string& from, const std::string& to, bool overwrite,
                                  const FolderProgress& progress = {}, LeftOuts* leftOut = nullptr) = 0;
  /// Moves one file; AlreadyThere when the target exists in another spelling than the source's own. To another
  /// volume it is a copy, synced, and then a delete; when the delete fails the copy is taken away again.
  virtual Result<void> moveFile(const std::string& from, const std::string& to, const Progress& progress = {}) = 0;
  /// Gives a file the name of another one of its volume, which goes, in one step; other names of the file stay its own.
  /// ReadOnlyTarget, SameEntry and alike as copyFile tells them; SameEntry too for a link that leads to the other one.
  /// NotSupported to another volume. On failure both stand.
  virtual Result<void> renameOver(const std::string& from, const std::string& to) = 0;
  /// Gives files of one folder new names there, as if all at once: a new name may still be the old one of another, also
  /// in a ring. Nothing is replaced: AlreadyThere. A file that is refused keeps its name, and the others go on. That
  /// each is a file is the caller's word. What a killed run left under a passing name, the next start of the program
  /// puts right or tells (Platform::startNotices).
  virtual std::vector<NotRenamed> renameFiles(const std::string& folder, std::span<const NewName> names) = 0;
  /// What renameFiles would refuse, as far as it can be seen without trying. Changes nothing.
  virtual std::vector<NotRenamed> checkRenames(const std::string& folder, std::span<const NewName> names) const = 0;
  /// Moves a folder within one volume; NotSupported to another one, AlreadyThere, IntoItself.
  virtual Result<void> moveFolder(const std::string& from, const std::string& to) = 0;
  /// Deletes a file or link (never what the link names). Without `force` a read-only file is AccessDenied.
  virtual Result<void> deleteFile(const std::string& path, bool force) = 0;
  /// Deletes a tree: by folder descriptors, links as entries, other mounted volumes not entered. Without `force`
  /// read-only files and folders stay. A folder stays in which something does. A link to a folder is removed as a link.
  /// `progress` is told entries.
  virtual Result<void> deleteFolder(const std::string& path, bool force, const Progress& progress = {},
                                    LeftOuts* leftOut = nullptr) = 0;
  /// Deletes files that a search of `root` has found, read-only ones too, in their order: an answer each, fewer when
  /// stopped. Links go as links. A path that leads out of the root, also by a link or a volume that has come to stand
  /// in it since, is refused. `progress` is told the files done.
  virtual std::vector<Result<void>> deleteBelow(const std::string& root, const std::vector<std::string>& paths,
                                                const Progress& progress = {}) = 0;
  /// Deletes a folder in which nothing lies.
  virtual Result<void> deleteEmptyFolder(const std::string& path) = 0;
  // The batch calls do what the single calls without overwriting and without force do, for files of one folder, much
  // quicker for many small ones. They end in front of the first name that is no plain case: a regular file, of at most
  // `limit` bytes, with no other attribute than archive where it is to be deleted, and with nothing of its name in the
  // target folder. So does one that fails. The caller goes on with that one by a single call, which tells what is the
  // matter. An empty answer is always right. `progress` is told files done, and ends the call in front of the next.
  virtual BatchResults copyFiles(const std::string& /*folder*/, const std::vector<std::string>& /*names*/,
                                 const std::string& /*to*/, std::uint64_t /*limit*/, const Progress& = {}) {
    return {};
  }
  virtual BatchResults moveFiles(const std::string& /*folder*/, const std::vector<std::string>& /*names*/,
                                 const std::string& /*to*/, const Progress& = {}) {
    return {};
  }
  virtual BatchResults deleteFiles(const std::string& /*folder*/, const std::vector<std::string>& /*names*/,
                                   const Progress& = {}) {
    return {};
  }
  /// Makes one folder; its parent must exist. AlreadyThere when anything has the name.
  virtual Result<void> createFolder(const std::string& path) = 0;
  /// Sets the settable bits to exactly those given; the others stay. NotSupported for a link: what it names is never
  /// touched. On a volume without extended attributes
  /// read-only is kept in the permission and the rest is NotSupported after that.
  virtual Result<void> setAttributes(const std::string& path, Attributes attributes) = 0;
  /// setAttributes for files of one folder, much quicker for many; an answer each, in their order. A file whose
  /// reported value is one of `spared` stays as it is: false.
  virtual std::vector<Result<bool>> setAttributesOf(const std::string& folder, const std::vector<std::string>& names,
                                                    Attributes attributes, std::span<const Attributes> spared) = 0;
  /// Takes all attributes off a file but system; bits that no user sets go too. Fails as setAttributes does.
  virtual Result<void> resetAttributes(const std::string& path) = 0;
  virtual Result<void> setModified(const std::string& path, const Date& date) = 0;
  /// Has the volume of the path write out all that was written to it, so that a power cut finds it. Without `wait` this
  /// returns at once and the work goes on beside; with it, when all is on the medium, or Stopped, as soon as `progress`
  /// says so, while the work goes on all the same.
  virtual Result<void> writeOut(const std::string& path, bool wait, const Progress& progress = {}) = 0;
};

}  // namespace varnholt::platform
