#include "vnzip/packer.hpp"

#include "platform/posix/posix_error.hpp"
#include "platform/posix/unique_fd.hpp"
#include "vnzip/container.hpp"
#include "vnzip/vnzip.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <libdeflate.h>
#include <unistd.h>
#include <zlib.h>

namespace varnholt::vnzip {
namespace {

using platform::posix::UniqueFd;

constexpr int Level = 6;
constexpr std::uint64_t PartLength = VnPartLength;
constexpr std::uint64_t Window = 32768;  // what a part may refer back to
constexpr std::uint64_t HeldAtMost = 12u << 20;
constexpr std::size_t PiecesAtMost = 256;

/// The library's own compressor, which takes whole files alone.
class WholeFiles {
 public:
  std::string pack(const std::string& bytes) {
    std::string packed(libdeflate_deflate_compress_bound(compressor_.get(), bytes.size()), '\0');
    packed.resize(
        libdeflate_deflate_compress(compressor_.get(), bytes.data(), bytes.size(), packed.data(), packed.size()));
    return packed;
  }

 private:
  std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compressor_{
      libdeflate_alloc_compressor(Level), libdeflate_free_compressor};
};

/// A part of a stream, which ends at a byte so that the next can follow. Empty: it cannot be.
std::string packPart(const std::string& before, const std::string& bytes, bool isLast) {
  z_stream stream{};
  if (::deflateInit2(&stream, Level, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) != Z_OK) return {};
  auto* const past = reinterpret_cast<const Bytef*>(before.data());
  if (!before.empty()) ::deflateSetDictionary(&stream, past, static_cast<uInt>(before.size()));
  std::string packed(::deflateBound(&stream, bytes.size()) + 64, '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  stream.avail_in = static_cast<uInt>(bytes.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  const int result = ::deflate(&stream, isLast ? Z_FINISH : Z_SYNC_FLUSH);
  packed.resize(stream.total_out);
  ::deflateEnd(&stream);
  return result == (isLast ? Z_STREAM_END : Z_OK) ? packed : std::string();
}

bool isAsBefore(const Source& source, int fd) {
  struct stat now {};
  return ::fstat(fd, &now) == 0 && S_ISREG(now.st_mode) && static_cast<std::uint64_t>(now.st_size) == source.size &&
         now.st_mtim.tv_sec == source.modified.tv_sec && now.st_mtim.tv_nsec == source.modified.tv_nsec;
}

void packLink(const Source& source, Piece& piece) {
  std::string target(source.size + 1, '\0');
  const ssize_t length = ::readlink(source.path.c_str(), target.data(), target.size());
  if (length != static_cast<ssize_t>(source.size)) {
    piece.failure = length < 0 ? platform::posix::errorWords(errno) : "it has changed";
    return;
  }
  target.resize(source.size);
  piece.crc = libdeflate_crc32(0, target.data(), target.size());
  piece.packed = std::move(target);
  piece.isStored = true;
}

void pack(const Source& source, Piece& piece, WholeFiles& wholeFiles) {
  if (source.isLink) return packLink(source, piece);
  const UniqueFd file(::open(source.path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
  if (!file) {
    piece.failure = platform::posix::errorWords(errno);
    return;
  }
  const std::uint64_t back = std::min(piece.offset, Window);
  std::string before(back, '\0'), bytes(piece.length, '\0');
  if (!isAsBefore(source, file.get()) || !readAt(file.get(), before.data(), back, piece.offset - back) ||
      !readAt(file.get(), bytes.data(), bytes.size(), piece.offset) || !isAsBefore(source, file.get())) {
    piece.failure = "it has changed, or cannot be read";
    return;
  }
  piece.crc = libdeflate_crc32(0, bytes.data(), bytes.size());
  const bool isWhole = piece.isFirst && piece.isLast;
  piece.packed = isWhole ? wholeFiles.pack(bytes) : packPart(before, bytes, piece.isLast);
  piece.isStored = isWhole && (piece.packed.empty() || piece.packed.size() >= bytes.size());
  if (piece.isStored) piece.packed = std::move(bytes);
  if (!isWhole && piece.packed.empty()) piece.failure = "it cannot be packed";
}

}  // namespace

Packer::Packer(const std::vector<Source>& sources) : sources_(sources) {
  const unsigned count = std::clamp(std::thread::hardware_concurrency(), 1u, 8u);
  for (unsigned number = 0; number < count; ++number)
    workers_.emplace_back([this] { work(); });
}

Packer::~Packer() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  changed_.notify_all();
  for (std::thread& worker : workers_)
    worker.join();
}

bool Packer::hasRoom() const { return pieces_.empty() || (held_ < HeldAtMost && pieces_.size() < PiecesAtMost); }

std::shared_ptr<Piece> Packer::begin() {
  if (source_ == sources_.size()) return nullptr;
  const std::uint64_t size = sources_[source_].size;
  auto piece = std::make_shared<Piece>();
  piece->source = source_;
  piece->offset = offset_;
  piece->length = sources_[source_].isLink ? size : std::min(PartLength, size - offset_);
  piece->isFirst = offset_ == 0;
  offset_ += piece->length;
  piece->isLast = offset_ == size;
  if (piece->isLast) ++source_, offset_ = 0;
  held_ += piece->length;
  pieces_.push_back(piece);
  return piece;
}

void Packer::work() {
  WholeFiles wholeFiles;
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return ends_ || source_ == sources_.size() || hasRoom(); });
    const auto piece = ends_ ? nullptr : begin();
    if (!piece) return;
    lock.unlock();
    pack(sources_[piece->source], *piece, wholeFiles);
    lock.lock();
    piece->isDone = true;
    if (piece == pieces_.front()) changed_.notify_all();
  }
}

std::shared_ptr<Piece> Packer::next() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return pieces_.empty() ? source_ == sources_.size() : pieces_.front()->isDone; });
  if (pieces_.empty()) return nullptr;
  auto piece = std::move(pieces_.front());
  pieces_.pop_front();
  held_ -= piece->length;
  changed_.notify_all();
  return piece;
}

}  // namespace varnholt::vnzip
