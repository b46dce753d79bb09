#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace varnholt::platform {

/// What went wrong, in the words that callers act on. The system's own words travel in Error::text.
enum class ErrorCode {
  NotFound,        ///< no such file, folder, drive or key
  AccessDenied,    ///< the system or the read-only rule refuses
  AlreadyThere,    ///< the target exists and may not be replaced
  ReadOnlyTarget,  ///< the target carries read-only, hidden or system and is not overwritten
  SameEntry,       ///< source and target are one file or folder (device and inode)
  IntoItself,      ///< a folder would go into itself
  NotAFolder,      ///< a folder was needed
  IsAFolder,       ///< a file was needed
  NotEmpty,        ///< the folder holds something
  NoSpace,         ///< disk full or quota reached
  TooLarge,        ///< the file system or a limit of ours refuses the size
  NotRegular,      ///< pipe, socket or device: never opened for reading
  NotReady,        ///< the drive has no medium or is not mounted
  NotSupported,    ///< the file system or system cannot do this
  InvalidPath,     ///< no drive of that letter, or a malformed path
  Damaged,         ///< contents that cannot be understood
  Stopped,         ///< the caller's progress function asked for the stop
  Failed,          ///< anything else
};

struct Error {
  ErrorCode code = ErrorCode::Failed;
  std::string path;  ///< program form; empty when no path is concerned
  std::string text;  ///< the system's words, for a log or a message
};

/// A value, or an Error. Never throws; value access on an error is a bug and asserts.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}
  Result(Error error) : state_(std::in_place_index<1>, std::move(error)) {}

  explicit operator bool() const { return state_.index() == 0; }
  bool ok() const { return state_.index() == 0; }
  T& operator*() & { return std::get<0>(state_); }
  const T& operator*() const& { return std::get<0>(state_); }
  T&& operator*() && { return std::get<0>(std::move(state_)); }
  T* operator->() { return &std::get<0>(state_); }
  const T* operator->() const { return &std::get<0>(state_); }
  const Error& error() const { return std::get<1>(state_); }
  T valueOr(T fallback) const { return ok() ? std::get<0>(state_) : std::move(fallback); }

 private:
  std::variant<T, Error> state_;
};

template <>
class [[nodiscard]] Result<void> {
 public:
  Result() = default;
  Result(Error error) : error_(std::move(error)) {}

  explicit operator bool() const { return !error_; }
  bool ok() const { return !error_; }
  const Error& error() const { return *error_; }

 private:
  std::optional<Error> error_;
};

}  // namespace varnholt::platform
