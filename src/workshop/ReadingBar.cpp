#include "workshop/ReadingBar.h"

#include "controls/ProgressBar.h"
#include "controls/PushButton.h"
#include "platform/QtText.h"
#include "text/NumberText.h"

#include <QHBoxLayout>
#include <QLabel>

#include <chrono>

namespace velmarin {

namespace {

constexpr int kBarWidth = 120;

QString grouped(std::int64_t number) {
    return toQ(Format(static_cast<double>(number), "#,##0"));
}

QString leftInWords(std::chrono::seconds left) {
    using std::chrono::minutes;
    if (left < minutes(1))
        return QStringLiteral("less than a minute left");
    const auto whole = std::chrono::ceil<minutes>(left).count();
    if (whole == 1)
        return QStringLiteral("a minute left");
    if (whole <= 90)
        return QStringLiteral("%1 minutes left").arg(whole);
    return QStringLiteral("%1 hours left").arg((whole + 30) / 60);
}

} // namespace

QString textOf(const ReadingProgress& progress) {
    const QString pages =
        QStringLiteral("%1 of %2 pages read")
            .arg(grouped(static_cast<std::int64_t>(progress.done)), grouped(static_cast<std::int64_t>(progress.of)));
    return progress.left ? pages + QStringLiteral(", ") + leftInWords(*progress.left) : pages;
}

ReadingBar::ReadingBar(QWidget* parent)
    : QWidget(parent), text_(new QLabel(this)), bar_(new ProgressBar(Qt::Horizontal, this)),
      button_(new PushButton(this)) {
    text_->setObjectName(QStringLiteral("ReadingST"));
    bar_->setAccessibleName(QStringLiteral("Pages read"));
    bar_->setFixedWidth(kBarWidth);
    button_->setObjectName(QStringLiteral("ReadingBT"));
    button_->setFocusPolicy(Qt::TabFocus);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(text_);
    row->addWidget(bar_);
    row->addWidget(button_);
    connect(button_, &QPushButton::clicked, this, [this] {
        if (running_)
            emit stopWanted();
        else
            emit goOnWanted();
    });
    hide();
}

void ReadingBar::showRunning(const ReadingProgress& progress) {
    running_ = true;
    text_->setText(textOf(progress));
    bar_->setMaximum(static_cast<int>(progress.of));
    bar_->setValue(static_cast<int>(progress.done));
    bar_->show();
    button_->setText(QStringLiteral("&Stop reading"));
    show();
}

void ReadingBar::showStopped() {
    running_ = false;
    bar_->hide();
    text_->setText(QStringLiteral("Not all pages are read."));
    button_->setText(QStringLiteral("&Go on reading"));
    show();
}

void ReadingBar::showDone() {
    running_ = false;
    hide();
}

} // namespace velmarin
