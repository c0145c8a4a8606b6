#include "workshop/NoticeBar.h"

#include "controls/PushButton.h"

#include <QHBoxLayout>
#include <QLabel>

#include <utility>

namespace velmarin {

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent), label_(new QLabel(this)), action_(new PushButton(this)),
      close_(new PushButton(QStringLiteral("OK"), this)) {
    setObjectName(QStringLiteral("NoticeBar"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    label_->setForegroundRole(QPalette::ToolTipText);
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(true);
    action_->setObjectName(QStringLiteral("NoticeActionBT"));
    close_->setObjectName(QStringLiteral("NoticeCloseBT"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(10, 4, 4, 4);
    row->addWidget(label_, 1);
    row->addWidget(action_);
    row->addWidget(close_);
    connect(close_, &QPushButton::clicked, this, &QWidget::hide);
    connect(action_, &QPushButton::clicked, this, [this] {
        hide();
        onAction_();
    });
    hide();
}

void NoticeBar::tell(const QString& text) {
    tell(text, QString(), {});
}

void NoticeBar::tell(const QString& text, const QString& button, std::function<void()> action) {
    label_->setText(text);
    action_->setText(button);
    action_->setVisible(!button.isEmpty());
    onAction_ = std::move(action);
    setAccessibleName(text);
    show();
}

QString NoticeBar::text() const {
    return label_->text();
}

} // namespace velmarin
