#include "WindowFixture.h"

#include <QApplication>
#include <QTest>

namespace velmarin::test {

WindowFixture::WindowFixture() {
    frame.setGeometry(100, 100, 838, 809);
    main.frame = &frame;
    // No control is under the pointer unless a test moves it there.
    QCursor::setPos(0, 0);
}

WindowFixture::~WindowFixture() {
    delete side_;
}

SubWindow& WindowFixture::open(Attachment attachment) {
    frame.show();
    side_ = new SubWindow(main, services(), attachment, [this](const QColor&) {
        return nextColor.isValid() ? std::optional(nextColor) : std::nullopt;
    });
    side_->open();
    return *side_;
}

SubWindow& WindowFixture::reopen() {
    const Attachment attachment = side_->attachment();
    side_->shut();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return open(attachment);
}

void WindowFixture::ask(const QString& word) {
    FindEF().setText(word);
    QTest::keyClick(&FindEF(), Qt::Key_Return);
}

} // namespace velmarin::test
