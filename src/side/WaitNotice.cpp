#include "side/WaitNotice.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace velmarin {

WaitNotice::WaitNotice(QWidget* over)
    : QFrame(over->parentWidget()), over_(over), label_(new QLabel(this)),
      StopBT_(new QPushButton(QStringLiteral("Stop"), this)) {
    setObjectName(QStringLiteral("WaitNotice"));
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    label_->setWordWrap(true);
    StopBT_->setObjectName(QStringLiteral("StopBT"));
    StopBT_->setToolTip(QStringLiteral("Stop waiting and go on without an answer"));
    auto* row = new QHBoxLayout(this);
    row->addWidget(label_, 1);
    row->addWidget(StopBT_);
    connect(StopBT_, &QPushButton::clicked, this, &WaitNotice::stopRequested);
    hide();
}

void WaitNotice::showAbout(const QString& text) {
    label_->setText(text);
    const QRect place = over_->geometry();
    const int height = std::min(std::max(sizeHint().height(), heightForWidth(place.width())), place.height());
    setGeometry(place.x(), place.bottom() + 1 - height, place.width(), height);
    if (isHidden()) {
        raise();
        show();
    }
}

} // namespace velmarin
