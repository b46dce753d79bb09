#pragma once

#include "controls/form.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/menu_bar.hpp"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace varnholt::qt {

/// What a window asks of the message loop that it lives in.
class WindowLoop {
 public:
  virtual ~WindowLoop() = default;
  /// A long call of the platform is running: nothing of the program may run.
  virtual bool isBlocked() const = 0;
  /// Assistive technology waits for the end of what it has asked for.
  virtual bool isWaitedFor() const = 0;
  virtual void later(std::function<void()> call) = 0;
  virtual Pictures& pictures() = 0;
  virtual DragAndDrop& dragAndDrop() = 0;
};

/// The widget of one form: built from its .ui file, every control joined to the widget of its name.
class FormWindow : public QObject, private Host {
 public:
  /// Null when no .ui file has the form's name.
  static std::unique_ptr<FormWindow> make(WindowLoop& loop, controls::Form& form);
  ~FormWindow() override;
  /// The form goes away: hides, and asks and tells it nothing more. The form may be destroyed by a handler that this
  /// window has called, so the object itself has to live until that call is back.
  void abandon();

  QWidget& widget() const { return *widget_; }
  /// Shows or hides by the form's Visible. `caller`: the window to stand on; null: the middle of the screen.
  void show(bool modal, const QWidget* caller);
  void hide();
  /// Brings the form's own properties up, and those of the controls given.
  void update(const std::vector<controls::Control*>& changed);
  /// Names of controls that no fitting widget draws.
  const std::vector<std::string>& unjoined() const { return unjoined_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  FormWindow(WindowLoop& loop, controls::Form& form, std::unique_ptr<QWidget> widget);

  // Host
  void fromUser(std::function<void()> act) override;
  bool previewKey(controls::KeyEvent& key) override;
  void focusTaken(controls::Control& control) override;
  Pictures& pictures() override { return loop_.pictures(); }
  DragAndDrop& dragAndDrop() override { return loop_.dragAndDrop(); }
  void popUp(const std::vector<controls::MenuItem*>& entries, const QPoint& at) override;
  void afterDrop(std::function<void()> act) override;

  /// False behind another modal window, and once the form has gone.
  bool mayAct() const;
  void joinControls();
  void updateControl(const controls::Control& control);
  void updateForm();
  void updatePlace(const QRect& wanted);
  void updateMenu(const std::vector<controls::Control*>& changed);
  void updateGroups();
  void setHeight(int height);
  void updateNames();
  void updateFocus();
  void updateSkin();
  void place(const QWidget* caller);
  void updateLayout();
  bool letScroll(const QRect& screen);
  QSize comfortableSize(const QSize& room) const;
  void putAt(QRect wanted, const QRect& room);
  bool hasPlace() const;
  QSize comingSize() const;
  /// The program has given the form another place than the one its window was last at.
  bool placedByProgram() const;
  QRect wantedPlace() const;
  void noteGeometry();
  QWidget* firstFocus() const;
  void showDefaultButton();
  void keepKeyboard();
  bool keyPress(const QKeyEvent& event);
  bool pressButton(const std::string& name);
  void report(const controls::Event<>& event);

  WindowLoop& loop_;
  controls::Form& form_;
  QPointer<QWidget> widget_;
  std::map<const controls::Control*, std::unique_ptr<Adapter>> adapters_;
  std::unique_ptr<MenuBar> menu_;
  std::vector<std::string> unjoined_;
  std::string skin_;
  QRect noted_;          ///< the place that was last told to the form
  bool placed_ = false;  ///< stands where the program wanted it
  bool updating_ = false;
  /// What was put off ends with the window.
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace varnholt::qt
