#pragma once

#include "controls/form.hpp"

#include <functional>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace varnholt::controls {

class Button;

enum class MessageIcon { None, Information, Question, Exclamation, Critical };
enum class MessageButtons { Ok, OkCancel, YesNo };
enum class MessageAnswer { Ok, Cancel, Yes, No };

/// The platform's modal message box.
struct MessageBox {
  std::string title;
  std::string text;  ///< a carriage return is a line break
  MessageIcon icon = MessageIcon::None;
  MessageButtons buttons = MessageButtons::Ok;
};

/// The colours that windows are drawn in; NoColor: the theme's own.
struct Dress {
  Color accent = NoColor;
  Color surface = NoColor;  ///< what controls stand on
  Color ground = NoColor;   ///< rows of lists that have no colour of their own
  bool operator==(const Dress&) const = default;
};

/// The screen as one window sees it.
struct Screen {
  controls::Dress Dress;  ///< of all windows, from the next turn in which one of them changes
  Twips width = 0, height = 0;
  int MousePointer = pointer::Default;  ///< of all windows, while not the default
};

/// What the user sees and may do while a long call runs.
struct Meanwhile {
  /// Called on the loop's thread, several times a second; sets properties and no more.
  std::function<void()> tick;
  /// The one button that works, by mouse, keys and assistive technology; the close box of its window stands for it.
  Button* stop = nullptr;
};

/// The window message loop. All logic runs on its thread; no call here may come from another.
class MessageLoop {
 public:
  virtual ~MessageLoop() = default;

  /// Handles what is pending (input, timers, repaints) and returns.
  virtual void giveTurn() = 0;
  /// Shows the form and handles input for it alone until it hides.
  virtual void runModal(Form& form) = 0;
  /// Runs one long call of the platform to its end. It may run on a helper thread while windows keep painting and
  /// input waits; the call must touch nothing but the platform and its own variables.
  virtual void runBlocking(const std::function<void()>& call, const Meanwhile& meanwhile = {}) = 0;
  /// The answer of such a call.
  template <class Call>
  auto ask(const Call& call) {
    std::optional<std::invoke_result_t<const Call&>> answer;
    runBlocking([&] { answer.emplace(call()); });
    return *std::move(answer);
  }
  /// Runs a call of the platform beside the window, which goes on: nobody waits for it, not even the program's end, so
  /// it may ask a drive that does not answer. `done` runs at a later turn. The call owns what it touches.
  virtual void runBeside(std::function<void()> call, std::function<void()> done) = 0;
  virtual MessageAnswer show(const MessageBox& box) = 0;
  /// Ends the loop that main() runs, once the running handlers have returned.
  virtual void quit() = 0;
  /// Runs the call at the next turn.
  virtual void later(std::function<void()> call) = 0;

  /// A form exists, has changed (itself or a control), or goes away. Called by Form.
  virtual void attach(Form& form) = 0;
  virtual void changed(Form& form) = 0;
  virtual void detach(Form& form) = 0;

  Screen& screen() { return screen_; }

 protected:
  Screen screen_;
};

}  // namespace varnholt::controls
