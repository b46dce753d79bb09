#pragma once

#include "panels/desk.hpp"
#include "panels/icons.hpp"
#include "panels/room.hpp"

#include <string>

namespace varnholt::appearance {

/// Shows the item in focus as a picture: `Picture1` with `Image1` beside the left panel, `Picture2` with `Image2`
/// beside the right one and for the Virtual DeskTop; and the icon of its type in `Picture3`.
class PictureView : public panels::Room {
 public:
  PictureView(panels::Desk& desk, const panels::Icons& icons);

  void addCommands(panels::CommandTable& table) override;
  void load() override;

  /// `Viewpicv1`, `Viewpicv2`: the panel's item in focus, while its box is visible.
  void Viewpicv(panels::Panel& panel);
  /// The same for a row of the Virtual DeskTop: a file's folder and name, or a folder and "<Folder>".
  void ViewpicvVDT(const std::string& Text, const std::string& SubItem);
  /// The icon of the type of a file, or of the program where there is no such file.
  void showIcon(const std::string& item);

  /// F12: the pictures fill their boxes, or are drawn in their own size.
  void Picview_Click();
  /// Shows or hides the boxes.
  void Picviewonof();
  /// What is shown gives way to the fallback picture.
  void Picreset();

 private:
  struct Box {
    controls::PictureBox &box, &image;
    std::string item{}, picture{};  ///< what a double click opens, and what is drawn
    bool isVDT = false;             ///< shows a row of the Virtual DeskTop
  };

  void bind(Box& box, panels::Panel& panel);
  void keyDown(Box& box, panels::Panel& panel, controls::KeyEvent& key);
  void show(Box& box, const std::string& item, bool isFile);
  /// `Pix`, `pix2`: takes the picture into the image or into the box, by the stretch.
  void Pix(Box& box);
  void open(const std::string& item);
  void askForIcon();
  void drawIcon(bool exists);
  void follow(panels::Panel& panel);
  Box& boxOf(const panels::Panel& panel) { return panel.side == panels::Side::Left ? left_ : right_; }
  bool isOn() const { return desk_.form.Picture1.Visible; }
  bool stretches(const Box& box) const;
  std::string fallback() const;

  panels::Desk& desk_;
  const panels::Icons& icons_;
  Box left_, right_;
  bool stretchVDT_ = true;
  std::string iconItem_;
  int asking_ = 0;
};

}  // namespace varnholt::appearance
