#include "Started.h"

#include "platform/QtText.h"
#include "shell/PageImages.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QEnterEvent>
#include <QLabel>

#include <gtest/gtest.h>

#include <cstdlib>

namespace velmarin::test {
namespace {

QAccessibleInterface* heard(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget);
}

TEST(ScreenReaders, HearTheCaptionOfEveryButtonFirstAndALabelOfEveryPopUp) {
    Started run({fruitGroup("G", 2).preferences("G\t0\t\nA\t0\nB\t1\n")});
    run.search("apple");
    run.click("SubWinBV");
    run.app().pageImages().show(FolderItem(run.groupFolder("G") / "A" / "mImg" / "1.bmp"), nullptr, 0);
    QStringList windows;
    for (QWidget* widget : QApplication::allWidgets()) {
        if (!widget->isVisible())
            continue;
        const std::string name = fromQ(widget->objectName());
        if (const auto* button = qobject_cast<QAbstractButton*>(widget); button != nullptr && !name.empty()) {
            EXPECT_TRUE(heard(widget)->text(QAccessible::Name).startsWith(button->text())) << name;
            EXPECT_NE(heard(widget)->text(QAccessible::Name), "") << name;
            windows << widget->window()->objectName();
        }
        if (qobject_cast<QComboBox*>(widget) != nullptr) {
            const auto labels = heard(widget)->relations(QAccessible::Label);
            ASSERT_EQ(labels.size(), 1) << name;
            EXPECT_NE(labels[0].first->text(QAccessible::Name), "") << name;
        }
    }
    EXPECT_TRUE(windows.contains("PageImageWindow"));
    EXPECT_TRUE(heard(run.control<QWidget>("UserDicPU")) != nullptr) << "the side window is open";
}

TEST(Logo, CanBeReadOnLightAndOnDarkDesktops) {
    Started run({fruitGroup("G", 1)});
    auto* logo = run.control<QLabel>("LOGO");
    for (const QColor& ground : {QColor(240, 240, 240), QColor(40, 42, 46)}) {
        QPalette colours = run.window().palette();
        colours.setColor(QPalette::Window, ground);
        run.window().setPalette(colours);
        for (int picture = 0; picture < 2; ++picture) {
            const QImage shown = logo->grab(QRect(logo->width() / 2, 0, logo->width() / 2, logo->height())).toImage();
            int read = 0;
            for (int y = 0; y < shown.height(); ++y)
                for (int x = 0; x < shown.width(); ++x)
                    read += std::abs(shown.pixelColor(x, y).lightness() - ground.lightness()) > 80 ? 1 : 0;
            EXPECT_GT(read, 30) << "picture " << picture << " on " << fromQ(ground.name());
            QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
            QApplication::sendEvent(logo, &enter);
        }
    }
}

} // namespace
} // namespace velmarin::test
