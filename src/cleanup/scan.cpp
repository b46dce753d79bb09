#include "cleanup/scan.hpp"

#include "core/text_character.hpp"
#include "filters/criteria.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <utility>

namespace varnholt::cleanup {
namespace {

namespace paths = platform::paths;

constexpr unsigned Levels = 9, FirstGuardedLevel = 2;
constexpr double Megabyte = 1'000'000;
constexpr std::size_t ShortestUserPattern = 3;

std::string trimmedText(const controls::TextBox& box) { return std::string(core::trimmed(box.Text.get())); }

}  // namespace

void Scan::Command1_Click() {
  Form16_.Timer1.Enabled = false;
  readLimits();
  ResetScan();
  if (const auto reason = refusal()) return desk_.program.dialogs.inform(*reason);
  run();
  ending();
}

void Scan::readLimits() {
  const auto& regional = desk_.program.platform.regional;
  moreThan_ = filters::readNumber(trimmedText(Form16_.Text3), regional);
  lessThan_ = filters::readNumber(trimmedText(Form16_.Text4), regional);
}

void Scan::ResetScan() {
  Form16_.clearHits();
  Form16_.Text1.Text = "";
  hits_.reset();
  patterns_ = {};
  for (const auto& each : Form16_.patternBoxes())
    if (each.box.Value) patterns_.add(each.pattern);
  const std::string user = trimmedText(Form16_.Text2);
  userPatterns_ = Form16_.options() && core::characterCount(user) >= ShortestUserPattern;
  if (userPatterns_)
    for (const std::string& pattern : filters::stringdiv(user))
      patterns_.add(pattern);
  sizesCount_ = Form16_.options() && Form16_.Check9.Value != 0;
}

std::optional<const char*> Scan::refusal() const {
  bool anyBox = false;
  for (const auto& each : Form16_.patternBoxes())
    anyBox = anyBox || each.box.Value;
  if (!anyBox && !userPatterns_) return "No Scan values Selected !";
  if (sizesCount_) {
    const std::string more = trimmedText(Form16_.Text3), less = trimmedText(Form16_.Text4);
    // What is no number is no bound, and a clean would take what it was to spare.
    const bool malformed = (!more.empty() && !moreThan_) || (!less.empty() && !lessThan_);
    if (malformed || (more.empty() && less.empty())) return "File Size Value NOT Valid !";
    if (more == less) return "FileSize Input Data Equal !";
    if (moreThan_ && lessThan_ && *moreThan_ > *lessThan_) return "FileSize Input Data Mismatch !";
  }
  if (Form16_.options() && !userPatterns_) return "UserPattern NOT Valid !";
  return {};
}

// --- The search ----------------------------------------------------------------------------------------------------

void Scan::run() {
  hits_ = std::make_shared<Hits>();
  hits_->root = Form16_.root();
  advance_ = {};
  Form16_.setRunning(true);
  (void)Form16_.work.run(
      Form16_.Command7, [this] { search(); }, [this] { Pbar(); });
}

void Scan::search() {
  const auto progress = [this](const platform::SearchAdvance& advance) {
    const std::lock_guard lock(mutex_);
    advance_ = advance;
    return Form16_.work.goesOn();
  };
  auto found = desk_.files().findFiles(
      hits_->root, Levels, [this](std::string_view name, unsigned level) { return takes(name, level); }, progress);
  if (!found) return;
  hits_->files = *std::move(found);
  addRows();
}

// Some programs keep the description of their data in a file of this name.
bool Scan::takes(std::string_view name, unsigned level) const {
  if (!patterns_.match(name)) return false;
  return level < FirstGuardedLevel || platform::foldCase(name) != "data.bak";
}

bool Scan::sizePasses(std::uint64_t bytes) const {
  if (!sizesCount_) return true;
  const double size = static_cast<double>(bytes) / Megabyte;
  return (!moreThan_ || *moreThan_ < size) && (!lessThan_ || size < *lessThan_);
}

void Scan::addRows() {
  std::erase_if(hits_->files, [this](const platform::FoundFile& file) { return !sizePasses(file.size); });
  hits_->versions.resize(hits_->files.size());
  for (std::uint32_t at = 0; at < hits_->files.size(); ++at) {
    const std::string& path = hits_->files[at].path;
    const std::size_t rows = patterns_.matches(paths::fileName(path));
    hits_->rows.insert(hits_->rows.end(), rows, at);
    hits_->bytes += rows * hits_->files[at].size;
    if (paths::isProgramName(path)) hits_->versions[at] = desk_.files().fileVersion(path).valueOr("");
  }
}

void Scan::Pbar() {
  const std::lock_guard lock(mutex_);
  Form16_.Text1.Text = advance_.folder;
  Form16_.ProgressBar1.Value = advance_.share * 100;
}

void Scan::ending() {
  const std::size_t found = hits_->files.size();
  if (found > 0)
    Form16_.show(hits_);
  else
    hits_.reset();
  Form16_.ProgressBar1.Value = 0;
  Form16_.setRunning(false);
  Form16_.Text1.Text = found > 0 ? "Scanning has ended and found " + std::to_string(found) + " Items to Clean!"
                                 : "Scanning has ended, - No Items to Clean !";
  patterns_ = {};
}

}  // namespace varnholt::cleanup
