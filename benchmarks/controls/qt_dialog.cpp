#include "controls/qt_dialog.h"

#include <QtCore/QBuffer>
#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <QtGui/QImage>
#include <QtUiTools/QUiLoader>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QWidget>

namespace Bench {
namespace {

// The rows, columns, texts and margins of resources/layouts/electricimage.vex.
constexpr const char* kUi = R"(<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0"><class>Dialog</class><widget class="QDialog" name="Dialog">
<property name="windowTitle"><string>ElectricImage</string></property>
<layout class="QHBoxLayout">
 <item><layout class="QVBoxLayout">
  <item><layout class="QHBoxLayout">
   <item><widget class="QLabel" name="label"><property name="text"><string>Frame Number:</string>
    </property></widget></item>
   <item><widget class="QSpinBox" name="frame"><property name="value"><number>1</number>
    </property></widget></item>
  </layout></item>
  <item><widget class="QLabel" name="count"><property name="text">
   <string>This file contains 5 frames.</string></property></widget></item>
 </layout></item>
 <item><layout class="QVBoxLayout">
  <item><widget class="QPushButton" name="ok"><property name="text"><string>OK</string></property>
   <property name="default"><bool>true</bool></property></widget></item>
  <item><widget class="QPushButton" name="cancel"><property name="text"><string>Cancel</string>
   </property></widget></item>
 </layout></item>
</layout></widget></ui>)";

// Widgets need an application.
void StartQt()
{
    static int count = 3;
    static char name[] = "bench";
    static char option[] = "-platform";
    static char value[] = "offscreen";
    static char* arguments[] = {name, option, value, nullptr};
    static QApplication application(count, arguments);
}

// Ends the dialog once its first paint, with its children's, has been done.
class EndsAfterPaint : public QObject {
public:
    explicit EndsAfterPaint(QDialog& dialog) : fDialog(dialog) { dialog.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, &fDialog, [this] { fDialog.done(1); });
        return false;
    }

private:
    QDialog& fDialog;
};

} // namespace

struct QtDialog::Parts {
    QUiLoader loader;
    QByteArray text{kUi};
    std::unique_ptr<QWidget> dialog;
};

QtDialog::QtDialog()
{
    StartQt();
    fParts = std::make_unique<Parts>();
}

QtDialog::~QtDialog() = default;

void QtDialog::Build()
{
    QBuffer buffer(&fParts->text);
    fParts->dialog.reset(fParts->loader.load(&buffer));
    fParts->dialog->adjustSize();
}

void QtDialog::Draw(double scale)
{
    QImage image(fParts->dialog->size() * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    fParts->dialog->render(&image);
}

void QtDialog::Run()
{
    Build();
    auto& dialog = dynamic_cast<QDialog&>(*fParts->dialog);
    const EndsAfterPaint ends(dialog);
    dialog.exec();
}

} // namespace Bench
