#pragma once

#include <QFrame>

class QLabel;
class QPushButton;
class QTimer;

namespace korv {

/// A short notice that closes itself: over the lower third of a window, or of the screen.
///
/// A plain notice stays 2 seconds, one longer than 60 characters 4; a click on it hides it at once. The
/// ones with Yes and No wait for a button, and answer No after 15 seconds.
class frmPopUp final : public QFrame {
 public:
  /// Notices are placed over `owner` unless the call names another place.
  explicit frmPopUp(QWidget* owner);

  QLabel* lblMessage = nullptr;
  QPushButton* cmdYes = nullptr;
  QPushButton* cmdNo = nullptr;
  QTimer* Timer1 = nullptr;

  void PopUp(const QString& message);
  void PopUpCenterScreen(const QString& message);
  /// `title` is what the system calls the window.
  void PopUpInForm(const QString& message, QWidget* form, const QString& title = {});
  /// Both return when one of the buttons was clicked or the time is up.
  bool PopUpYesNo(const QString& message);
  bool PopUpYesNoCenterScreen(const QString& message);

  void Timer1_Timer();
  void lblMessage_MouseUp();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// `area` is in global coordinates.
  void ShowOver(const QString& message, const QRect& area, bool asks);
  bool Ask(const QString& message, const QRect& area);
  /// Lines that are too long for the screen, those of paths, lose their middle.
  QString WithinScreen(const QString& message) const;
  QRect WindowArea(const QWidget* form) const;
  QRect ScreenArea() const;

  QWidget* owner_;
};

}  // namespace korv
