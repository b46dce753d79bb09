#pragma once

#include "app/app.hpp"
#include "idle_loop.hpp"

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

namespace varnholt::bench {

using Clock = std::chrono::steady_clock;

inline long microsecondsSince(Clock::time_point from) {
  return static_cast<long>(std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - from).count());
}

/// The whole program without windows, started, with the keyboard in its left panel. It keeps its files in a folder that
/// goes with it.
class StartedProgram {
 public:
  StartedProgram(IdleLoop& loop, std::filesystem::path scratch)
      : scratch_(std::move(scratch)), host_(platform::makePlatformHost({{}, scratch_, {}, "C=/;Z=/"})) {
    loop.screen().width = 1280 * controls::TwipsPerPixel;
    app_ = std::make_unique<app::App>(loop, host_->platform());
    core::Settings(host_->platform().settings).save(core::setting::Tip_State, "1");
    started_ = app_->Main();
    if (!started_) return;
    app_->Form1.Activate();
    app_->Form1.ListView1.SetFocus();
  }
  ~StartedProgram() { std::filesystem::remove_all(scratch_); }
  StartedProgram(const StartedProgram&) = delete;
  StartedProgram& operator=(const StartedProgram&) = delete;

  app::App& app() { return *app_; }
  /// Takes a panel to a folder of the system. False: there is no such folder, or the program has not started.
  bool goTo(panels::Panel& panel, const std::string& folder) {
    return started_ && app_->navigation.goTo(panel, host_->platform().toProgram(std::filesystem::absolute(folder)));
  }

 private:
  std::filesystem::path scratch_;
  std::unique_ptr<platform::PlatformHost> host_;
  std::unique_ptr<app::App> app_;
  bool started_ = false;
};

}  // namespace varnholt::bench
