#include "drawn_program.hpp"
#include "qt/widgets/drop_mark.hpp"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPushButton>

namespace varnholt::test {
namespace {

std::unique_ptr<QMimeData> uris(const QByteArray& lines) {
  auto data = std::make_unique<QMimeData>();
  data->setData(QStringLiteral("text/uri-list"), lines);
  return data;
}

/// One drag over a widget by another program, or by us.
struct Drag {
  const QMimeData& data;
  Qt::KeyboardModifiers modifiers = {};
  Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
  Qt::DropAction reported = Qt::IgnoreAction;  ///< what the other program is told
  std::optional<QPoint> onto = {};             ///< empty: below the rows

  QPoint placeIn(const QWidget& widget) const { return onto.value_or(QPoint(9, widget.height() - 9)); }
  bool enter(QWidget& widget) const {
    QDragEnterEvent event(placeIn(widget), actions, &data, Qt::LeftButton, modifiers);
    QCoreApplication::sendEvent(&widget, &event);
    return event.isAccepted();
  }
  bool drop(QWidget& widget) {
    if (!enter(widget)) return false;
    QDropEvent event(placeIn(widget), actions, &data, Qt::LeftButton, modifiers);
    QCoreApplication::sendEvent(&widget, &event);
    reported = event.dropAction();
    return event.isAccepted();
  }
};

class DrawnDrops : public DrawnProgram {
 protected:
  void SetUp() override {
    rig.write("C:\\Été à la mer.txt");
    rig.write("C:\\100%.txt");
    rig.write(Raw);
    start();
    for (const char* handler : {"Command1_Click", "Command3_Click", "Command4_Click"})
      app.Form1.commands.find(handler)->run = [this, handler] { ran.push_back(handler); };
    app.drops.dropFiles = [this](panels::Panel& panel, const std::vector<std::string>& files, bool move) {
      ran.push_back((panel.side == panels::Side::Left ? "left" : "right") + std::string(move ? " move" : " copy"));
      dropped = files;
      return true;
    };
    app.Form1.Command4.Enabled = true;
    loop.flush();
  }

  QWidget& left() { return *list("ListView1")->viewport(); }
  QWidget& right() { return *list("ListView2")->viewport(); }
  QWidget& button(const char* name) { return *window->findChild<QWidget*>(QLatin1String(name)); }

  /// Presses on a row of the left panel and pulls; `user` is what the hand does with the data.
  void pull(const std::string& row, std::function<void(const QMimeData&)> user, Qt::KeyboardModifiers modifiers = {}) {
    bool carried = false;
    loop.dragAndDrop().setCarrier([&](QWidget&, std::unique_ptr<QMimeData> data) {
      carried = true;
      if (user) user(*data);
    });
    const QPoint from = middleOf(list("ListView1"), row);
    QTest::mousePress(&left(), Qt::LeftButton, modifiers, from);
    for (const int step : {2, 40}) {
      QMouseEvent move(QEvent::MouseMove, from + QPoint(step, 0), left().mapToGlobal(from), Qt::NoButton,
                       Qt::LeftButton, modifiers);
      QCoreApplication::sendEvent(&left(), &move);
      EXPECT_EQ(carried, step > 2) << "a hand that shakes drags nothing";
    }
  }
  std::vector<std::string> happened() {
    QCoreApplication::processEvents();
    return std::exchange(ran, {});
  }
  QByteArray uriOf(const std::string& path) {
    return "file://" + QByteArray::fromStdString(rig.systemPath(path)).toPercentEncoding("/");
  }

  using Ran = std::vector<std::string>;
  static constexpr char Raw[] = "C:\\no utf-8 \xE9.txt";
  Ran ran, dropped;
};

/// The drops as the program itself binds them.
class DrawnCopies : public DrawnDrops {
 protected:
  void SetUp() override {
    start();
    ASSERT_TRUE(app.navigation.goTo(app.Form1.Panel2, "D:\\"));
  }
};

TEST_F(DrawnDrops, ADragCarriesTheSelectedFilesForAnyProgram) {
  auto* widget = list("ListView1");
  QTest::mouseClick(&left(), Qt::LeftButton, {}, middleOf(widget, "100%"));
  for (const char* row : {"Été", "no utf-8", "Photos"})
    QTest::mouseClick(&left(), Qt::LeftButton, Qt::ControlModifier, middleOf(widget, row));
  QByteArrayList carried;
  pull("100%", [&](const QMimeData& data) { carried = data.data(QStringLiteral("text/uri-list")).split('\n'); });
  const auto has = [&](const std::string& path) { return carried.contains(uriOf(path) + '\r'); };
  EXPECT_TRUE(has("C:\\Photos") && has("C:\\100%.txt") && has("C:\\Été à la mer.txt") && has(Raw));
  EXPECT_EQ(carried.size(), 5) << "four lines and the end";
  EXPECT_EQ(app.Form1.ListView1.selectedCount(), 4u) << "the press on a selected row has kept them all";
}

TEST_F(DrawnDrops, NothingIsDraggedFromBelowTheRows) {
  loop.dragAndDrop().setCarrier([](QWidget&, auto) { ADD_FAILURE() << "nothing was pressed"; });
  const QPoint below(40, left().height() - 4);
  QTest::mousePress(&left(), Qt::LeftButton, {}, below);
  QMouseEvent move(QEvent::MouseMove, below - QPoint(0, 60), left().mapToGlobal(below), Qt::NoButton, Qt::LeftButton,
                   {});
  QCoreApplication::sendEvent(&left(), &move);
}

TEST_F(DrawnDrops, ADropOnTheOtherPanelCopiesAndWithShiftMovesOnceTheDragIsOver) {
  for (const auto& [modifiers, handler] : {std::pair(Qt::KeyboardModifiers(), "Command1_Click"),
                                           std::pair(Qt::KeyboardModifiers(Qt::ShiftModifier), "Command3_Click")}) {
    pull("letter", [&](const QMimeData& data) {
      Drag drag{data, modifiers, Qt::CopyAction};
      EXPECT_TRUE(drag.drop(right()));
      EXPECT_EQ(happened(), Ran{}) << "the drag is not over";
    });
    EXPECT_EQ(happened(), Ran{handler});
    EXPECT_TRUE(app.Form1.View1Active());
    EXPECT_EQ(app.Form1.CurrentItem, "letter.txt");
    EXPECT_EQ(app.Form1.filecollect.count(), 1u) << "the drag has selected its row";
  }
}

TEST_F(DrawnDrops, ADropOnAButtonRunsItAndOneOnItsOwnPanelOrElsewhereNothing) {
  pull("letter", [&](const QMimeData& data) {
    EXPECT_TRUE(Drag{data}.drop(button("Command4")));
    for (QWidget* other : {&left(), &button("Command11"), &button("Text1"), &button("Drive1")})
      EXPECT_FALSE(Drag{data}.drop(*other)) << qPrintable(other->objectName());
  });
  EXPECT_EQ(happened(), Ran{"Command4_Click"});
}

TEST_F(DrawnDrops, ADropOnTheVirtualDeskTopAddsAPointer) {
  app.dispatcher.perform("LocalDesk_Click");
  loop.flush();
  pull("letter", [&](const QMimeData& data) { EXPECT_TRUE(Drag{data}.drop(*list("ListView3")->viewport())); });
  QCoreApplication::processEvents();
  EXPECT_EQ(app.Form1.ListView3.count(), 1u);
}

TEST_F(DrawnDrops, TheDataOfAnEarlierDragAreThoseOfAnotherProgram) {
  auto kept = std::make_unique<QMimeData>();
  pull("letter", [&](const QMimeData& data) {
    for (const QString& format : data.formats())
      kept->setData(format, data.data(format));
  });
  EXPECT_TRUE(Drag{*kept}.drop(left()));
  EXPECT_EQ(happened(), Ran{"left copy"});
  EXPECT_EQ(dropped, Ran{"C:\\letter.txt"});
}

TEST_F(DrawnDrops, FilesOfAnotherProgramArriveByTheirProgramPaths) {
  const QByteArray letter = QByteArray::fromStdString(rig.systemPath("C:\\letter.txt"));
  for (const QByteArray& uri : {"file:" + letter, "FILE://localhost" + letter})
    EXPECT_EQ(loop.dragAndDrop().read(*uris(uri))->files, Ran{"C:\\letter.txt"});
  const auto data = uris("# from elsewhere\r\n" + uriOf("C:\\Été à la mer.txt") + "\r\n" + uriOf("D:\\backup.zip") +
                         "\r\n" + uriOf(Raw));
  Drag drag{*data};
  EXPECT_TRUE(drag.drop(right()));
  EXPECT_EQ(happened(), Ran{"right copy"});
  EXPECT_EQ(dropped, (Ran{"C:\\Été à la mer.txt", "D:\\backup.zip", Raw}));
  Drag moving{*data, Qt::ShiftModifier};
  EXPECT_TRUE(moving.drop(left()));
  EXPECT_EQ(happened(), Ran{"left move"});
  EXPECT_EQ(moving.reported, Qt::CopyAction) << "nobody else deletes files on our word";
}

TEST_F(DrawnDrops, WhatIsNoFileOfThisMachineIsRefused) {
  const QByteArray file = uriOf("C:\\letter.txt");
  const std::pair<const char*, QByteArray> cases[] = {
      {"a page of the web", "https://example.org/letter.txt"},
      {"a file of another machine", "file://elsewhere.example/home/letter.txt"},
      {"a file and a page", file + "\r\nhttps://example.org/"},
      {"no path", "file://"},
      {"a name with a zero in it", "file:///tmp/a%00b"},
      {"nothing", ""}};
  for (const auto& [what, lines] : cases)
    EXPECT_FALSE(Drag{*uris(lines)}.enter(right())) << what;
  QMimeData text;
  text.setText(QStringLiteral("C:\\letter.txt"));
  EXPECT_FALSE(Drag{text}.enter(right())) << "a text";
  const auto data = uris(file);
  EXPECT_FALSE((Drag{*data, {}, Qt::MoveAction}.enter(right()))) << "the other program would delete its file";
  EXPECT_FALSE(Drag{*data}.enter(button("Text1"))) << "a field would show its address";
  EXPECT_EQ(happened(), Ran{});
}

TEST_F(DrawnDrops, ADialogKeepsDropsFromTheWindowsBehindIt) {
  const auto data = uris(uriOf("C:\\letter.txt"));
  inDialog(app.Form35, [&](QWidget*) { EXPECT_FALSE(Drag{*data}.enter(right())); });
  app.Form35.browse("Copy Item(s)");
  EXPECT_TRUE(Drag{*data}.enter(right()));
}

TEST_F(DrawnDrops, ADropThatComesWhileALongCallRunsIsRefusedAndItsFilesStayWithTheOtherProgram) {
  auto data = uris(uriOf("C:\\letter.txt"));
  ASSERT_TRUE(Drag{*data}.enter(right())) << "it came before the call";
  const auto dropThere = [&] {
    EXPECT_FALSE(Drag{*data}.enter(left()));
    QDropEvent event({9, 9}, Qt::CopyAction | Qt::MoveAction, data.get(), Qt::LeftButton, {});
    event.setDropAction(Qt::MoveAction);
    event.accept();
    QCoreApplication::sendEvent(&right(), &event);
    EXPECT_FALSE(event.isAccepted());
    EXPECT_EQ(event.dropAction(), Qt::IgnoreAction) << "the other program must not delete its file";
    data.reset();
  };
  loop.runBlocking([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(40));
    QMetaObject::invokeMethod(&loop, dropThere, Qt::BlockingQueuedConnection);
  });
  EXPECT_EQ(happened(), Ran{}) << "nor may it land afterwards, from data that are gone";
  EXPECT_EQ(list("ListView2")->findChildren<qt::DropMark*>().size(), 0);
}

TEST_F(DrawnCopies, ADropOntoAFoldersRowGoesIntoThatFolder) {
  rig.makeFolder("D:\\box");
  app.listing.ViewRenew();
  for (const auto& [name, row, folder] :
       {std::tuple{"ListView2", "box", "D:\\box\\"}, {"ListView1", "Photos", "C:\\Photos\\"}}) {
    auto& over = *list(name)->viewport();
    pull("letter", [&, name = name, row = row](const QMimeData& data) {
      Drag drag{data, {}, Qt::CopyAction};
      EXPECT_TRUE(drag.enter(over)) << "or the toolkit tells of no further place";
      drag.onto = middleOf(list(name), row);
      EXPECT_TRUE(drag.enter(over));
      const auto marks = list(name)->findChildren<qt::DropMark*>();
      ASSERT_EQ(marks.size(), 1);
      EXPECT_LT(marks.front()->height(), 60) << "around the row alone";
      EXPECT_TRUE(drag.drop(over));
    });
    inDialog(app.fileops.Form3, [&, folder = folder](QWidget* dialog) {
      EXPECT_EQ(app.fileops.Form3.Text3.Text.get(), folder);
      QTest::mouseClick(usable<QPushButton>(dialog, "Command11"), Qt::LeftButton);
    });
    const std::string file = std::string(folder) + "letter.txt";
    EXPECT_TRUE(waitFor([&] { return rig.exists(file) && !app.fileops.Form3.Visible && !app.dispatcher.busy; }));
    EXPECT_EQ(pathShown("Text2"), "D:\\") << "the panel is where it was";
  }
  EXPECT_FALSE(rig.exists("D:\\letter.txt"));
}

}  // namespace
}  // namespace varnholt::test
