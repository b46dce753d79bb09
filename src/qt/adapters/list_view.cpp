#include "controls/list_view.hpp"

#include "controls/type_ahead.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/input.hpp"
#include "qt/pictures.hpp"
#include "qt/text.hpp"
#include "qt/theme.hpp"
#include "qt/widgets/list_view_widget.hpp"
#include "qt/widgets/surface.hpp"

#include <QApplication>
#include <QItemSelectionModel>
#include <QPixmap>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

namespace varnholt::qt {
namespace {

/// The two tones of a line picture: its colours a quarter and three quarters down. Rows are drawn in them whatever
/// their height is, so the stripes always meet the rows.
std::pair<QColor, QColor> tonesOf(const QPixmap& picture) {
  const QImage image = picture.toImage();
  return {image.pixelColor(0, image.height() / 4), image.pixelColor(0, image.height() * 3 / 4)};
}

/// Widths of the first column, which holds names, and the shares of their widths that the others keep beside it.
constexpr int UsefulName = 140, NarrowestName = 88;
constexpr double ReadableShare = 0.8, NarrowestShare = 0.68;

/// Widths in which the columns fit the room, if they can: the names give way first, down to what is useful; then the
/// others, which have room around their texts, and so in turn. Where all that is not enough, the list is scrolled, and
/// nothing is narrower than can be read.
std::vector<int> fittedWidths(std::vector<int> widths, int room) {
  if (widths.empty()) return widths;
  const int others = std::accumulate(widths.begin() + 1, widths.end(), 0);
  double share = 1;
  const bool fits = theme::scaled(NarrowestName) + static_cast<int>(others * NarrowestShare) <= room;
  for (const auto& [name, least] : {std::pair{UsefulName, ReadableShare}, {NarrowestName, NarrowestShare}}) {
    if (!fits && name == NarrowestName) break;
    widths[0] =
        std::clamp(room - static_cast<int>(others * share), std::min(widths[0], theme::scaled(name)), widths[0]);
    if (others > 0) share = std::clamp(double(room - widths[0]) / others, least, share);
  }
  std::for_each(widths.begin() + 1, widths.end(), [share](int& width) { width = static_cast<int>(width * share); });
  return widths;
}

class ListViewAdapter : public Joined<controls::ListView, ListViewWidget> {
 public:
  ListViewAdapter(Host& host, controls::ListView& control, ListViewWidget& widget) : Joined(host, control, widget) {
    drawn.setList(self);
    ListHeader* header = drawn.listHeader();
    // The toolkit takes the second of two quick clicks for a double click alone.
    for (const auto clicked : {&QHeaderView::sectionClicked, &QHeaderView::sectionDoubleClicked})
      connect(header, clicked, this,
              [this](int column) { this->host().fromUser([this, column] { self.headerFromUser(column + 1); }); });
    connect(drawn.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& on, const QItemSelection& off) {
              if (!drawn.isShowingSelection() && !abandoned()) markRows(on.indexes() + off.indexes());
            });
    setDropPlaces([this](const QPoint& at, const controls::Control* source) { return dropPlace(at, source); });
    connect(header, &QHeaderView::sectionResized, this, [this](int column, int, int width) {
      if (updating() || fitting_ || width <= 0) return;
      self.widthFromUser(column, width / theme::fontScale() * controls::TwipsPerPixel);
      headers_ = self.ColumnHeaders.get();  // drawn so already
    });
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == drawn.viewport() && event->type() == QEvent::Resize && !abandoned()) fitColumns();
    return Joined::eventFilter(watched, event);
  }

  void abandon() override {
    Joined::abandon();
    drawn.listHeader()->blockSignals(true);
    drawn.detach();
  }

 protected:
  bool clicksByMouse() const override { return false; }

  void updateOwn() override {
    const auto& headers = self.ColumnHeaders.get();
    const bool rowsChanged = drawn.catchUp();
    if (rowsChanged || headers != headers_) showColumns();
    drawn.listHeader()->setEmphasis(emphasis());
    if (auto* panel = dynamic_cast<Surface*>(drawn.parentWidget())) panel->setActive(emphasis() == Emphasis::Active);
    drawn.setColors(colorsNow());
    drawn.showFocusedRow();
    drawn.showSelectedRows();
    if (const auto row = self.takeVisibleRequest()) drawn.scrollToRow(*row);
  }

  // The rows have colours of their own.
  void applyColors() override {}

  bool keyDown(controls::KeyEvent& key, const QKeyEvent& event) override {
    const auto now = std::chrono::steady_clock::now();
    const bool typesOn = alsoWrites(key.code) && typed_.goesOn(now);
    if (isMenuKey(key)) {
      typed_.forget();
      host().fromUser([this] { popUp(drawn.belowFocusedRow()); });
      return true;
    }
    if (!typesOn) self.keyFromUser(key, drawn.page());
    if (abandoned()) return true;
    if (key.handled) {
      typed_.forget();
      return true;
    }
    const bool leaves = key.code == controls::key::Tab;
    if (leaves) return false;
    const QString text = event.text();
    const bool types = !text.isEmpty() && text[0].isPrint() && !key.modifiers.ctrl && !key.modifiers.alt;
    if (types) self.seekFromUser(typed_.type(fromQt(text), now));
    // The widget's own keys are not wanted; what nobody took goes on to the window (Enter, Esc).
    const_cast<QKeyEvent&>(event).setAccepted(types);
    return true;
  }

  void keyUp(controls::KeyEvent& key) override { self.keyUpFromUser(key); }

  bool mousePress(const QMouseEvent& event) override {
    doubleClicked_ = false;
    const auto row = rowUnder(event);
    pressedAt_.reset();
    if (row && event.button() == Qt::LeftButton) pressedAt_ = event.position().toPoint();
    self.pressFromUser(row, mouseOf(event));
    return true;
  }

  bool mouseMove(const QMouseEvent& event) override {
    const bool held = pressedAt_ && event.buttons().testFlag(Qt::LeftButton);
    const auto moved = held ? (event.position().toPoint() - *pressedAt_).manhattanLength() : 0;
    if (!held || moved < QApplication::startDragDistance()) return Joined::mouseMove(event);
    pressedAt_.reset();
    host().fromUser([this, mouse = controls::MouseEvent{controls::MouseButton::Left, modifiersOf(event.modifiers())}] {
      drag(mouse);
    });
    return true;
  }

  bool mouseRelease(const QMouseEvent& event) override {
    pressedAt_.reset();
    // The click was told before the double click.
    if (std::exchange(doubleClicked_, false)) {
      self.MouseUp(mouseOf(event));
    } else {
      self.releaseFromUser(mouseOf(event));
      if (!abandoned() && event.button() == Qt::RightButton) popUp(event.globalPosition().toPoint());
    }
    return true;
  }

  bool mouseDoubleClick(const QMouseEvent& event) override {
    doubleClicked_ = true;
    self.doubleClickFromUser(rowUnder(event));
    return true;
  }

 private:
  /// Assistive technology has changed the marks of these rows: that is a click on each, which leaves the others alone.
  void markRows(const QModelIndexList& cells) {
    std::set<int> rows;
    for (const QModelIndex& cell : cells)
      rows.insert(cell.row());
    for (const int row : rows)
      host().fromUser([this, row] {
        const bool many = self.MultiSelect;
        const controls::MouseEvent mouse{controls::MouseButton::Left, {.ctrl = many}};
        self.pressFromUser(static_cast<std::uint32_t>(row), mouse);
        self.releaseFromUser(mouse);
        controls::KeyEvent up;
        up.code = controls::key::Ctrl;
        if (many && !abandoned()) self.keyUpFromUser(up);
      });
    if (!abandoned()) drawn.showSelectedRows();
  }

  // Keys with a meaning of their own that belong to a name once one is being typed.
  static bool alsoWrites(int code) {
    return code == controls::key::Space || code == controls::key::Add || code == controls::key::Subtract ||
           code == controls::key::Multiply;
  }
  static bool isMenuKey(const controls::KeyEvent& key) {
    return key.code == controls::key::Menu || (key.code == controls::key::F10 && key.modifiers.shift);
  }

  void popUp(const QPoint& at) {
    if (self.PopupEntries) host().popUp(self.PopupEntries(), at);
  }

  // A row that is dragged itself is no place for the others.
  DropTarget::Place dropPlace(const QPoint& at, const controls::Control* source) {
    const auto row = self.OLEDropFolder ? drawn.rowAt(at.y()) : std::nullopt;
    if (!row) return {};
    const controls::ListItem item = self.item(*row);
    if (source == &self && item.Selected()) return {};
    std::string folder = self.OLEDropFolder(item);
    if (folder.empty()) return {};
    return {drawn.placeOfRow(*row), std::move(folder)};
  }

  // The drag takes the release of the button for itself, so the list is told of it afterwards.
  void drag(const controls::MouseEvent& mouse) {
    auto files = self.OLEStartDrag ? self.OLEStartDrag() : std::vector<std::string>();
    if (files.empty()) return;
    self.dragFromUser();
    host().dragAndDrop().drag(self, std::move(files), drawn);
    if (!abandoned()) self.releaseFromUser(mouse);
  }

  std::optional<std::uint32_t> rowUnder(const QMouseEvent& event) const {
    const QPoint at = event.position().toPoint();
    const bool besideName = !self.FullRowSelect && drawn.columnAt(at.x()) != 0;
    return besideName ? std::nullopt : drawn.rowAt(at.y());
  }

  // Widths are kept for the designed font, so that columns hold their texts in a larger one.
  int drawnWidth(int column) const {
    const double pixels = headers_[static_cast<std::size_t>(column)].Width / controls::TwipsPerPixel;
    return static_cast<int>(std::lround(pixels * theme::fontScale()));
  }

  void showColumns() {
    headers_ = self.ColumnHeaders.get();
    QHeaderView& header = *drawn.listHeader();
    for (int column = 0; column < header.count(); ++column)
      header.setSectionHidden(column, drawnWidth(column) <= 0);
    const std::vector<int> widths = drawnWidths();
    const int all = std::accumulate(widths.begin(), widths.end(), 0);
    const int others = widths.empty() ? 0 : all - widths.front();
    drawn.setColumnsWidth(all, theme::scaled(NarrowestName) + static_cast<int>(others * ReadableShare));
    fitColumns();
    header.viewport()->update();
  }

  std::vector<int> drawnWidths() const {
    const int count = std::min(drawn.listHeader()->count(), static_cast<int>(headers_.size()));
    std::vector<int> widths;
    for (int column = 0; column < count; ++column)
      widths.push_back(std::max(0, drawnWidth(column)));
    return widths;
  }

  // What the user has set stays what is kept, however narrow the window is.
  void fitColumns() {
    const QScopedValueRollback fitting(fitting_, true);
    QHeaderView& header = *drawn.listHeader();
    const std::vector<int> widths = fittedWidths(drawnWidths(), drawn.viewport()->width());
    for (int column = 0; column < static_cast<int>(widths.size()); ++column)
      if (const int width = widths[static_cast<std::size_t>(column)]; width > 0) header.resizeSection(column, width);
  }

  void readTones() {
    if (self.Picture.get() == picture_) return;
    picture_ = self.Picture.get();
    const QPixmap& picture = host().pictures().kept(picture_);
    tones_.reset();
    if (!picture.isNull()) tones_ = tonesOf(picture);
  }

  ListColors colorsNow() {
    ListColors colors;
    colors.base = colors.stripe =
        self.BackColor == controls::NoColor ? theme::listBase() : theme::colorOf(self.BackColor);
    readTones();
    if (tones_) std::tie(colors.base, colors.stripe) = *tones_;
    const bool dimmed = emphasis() == Emphasis::Dimmed;
    const QColor text =
        self.ForeColor == controls::NoColor ? QColor::fromRgb(theme::Text) : theme::colorOf(self.ForeColor);
    colors.text = theme::readable(dimmed ? QColor::fromRgb(theme::DimText) : text, colors.base);
    colors.selection = dimmed ? theme::dimSelection() : theme::selection();
    colors.selectionText = Qt::white;
    colors.grid = theme::gridLine();
    return colors;
  }

  std::vector<controls::ColumnHeader> headers_;
  std::string picture_;
  std::optional<std::pair<QColor, QColor>> tones_;
  controls::TypeAhead typed_;
  std::optional<QPoint> pressedAt_;  ///< where the left button went down on a row, until it is known what it begins
  bool doubleClicked_ = false;
  bool fitting_ = false;
};

}  // namespace

std::unique_ptr<Adapter> joinListView(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<ListViewAdapter>(host, control, widget);
}

}  // namespace varnholt::qt
