#include "shell/NoGroupNotice.h"

#include "controls/AnchoredLayout.h"
#include "platform/QtText.h"

#include <QAccessible>

#include <utility>

namespace velmarin {

NoGroupNotice::NoGroupNotice(QWidget* parent, AnchoredLayout& layout) : NoticeST_(new QLabel(parent)) {
    NoticeST_->setObjectName(QStringLiteral("NoticeST"));
    NoticeST_->setTextFormat(Qt::PlainText);
    NoticeST_->setWordWrap(true);
    NoticeST_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QFont font = parent->font();
    font.setBold(true);
    NoticeST_->setFont(font);
    // The page behind it is white in every theme.
    NoticeST_->setStyleSheet(QStringLiteral("color: #000080"));
    NoticeST_->hide();
    layout.add(NoticeST_, QRect(40, 155, 490, 160), Anchor::Left | Anchor::Top | Anchor::Right);
}

void NoGroupNotice::setReason(std::string reason) {
    reason_ = std::move(reason);
    show();
}

void NoGroupNotice::setProgress(std::string progress) {
    progress_ = std::move(progress);
    show();
}

void NoGroupNotice::setWaitingWord(std::string word) {
    word_ = std::move(word);
    show();
}

std::string NoGroupNotice::takeWaitingWord() {
    std::string word = std::exchange(word_, {});
    show();
    return word;
}

void NoGroupNotice::show() {
    const bool inProgress = !progress_.empty();
    std::string text = inProgress ? progress_ : reason_;
    if (!inProgress && !word_.empty())
        text += (text.empty() ? "" : "\n\n") + ("Choose a group to search for ‘" + word_ + "’.");
    // A path has no spaces at which a line could break.
    const QString shown = toQ(text).replace(u'/', QStringLiteral("/\u200b"));
    if (shown == NoticeST_->text())
        return;
    NoticeST_->setText(shown);
    NoticeST_->setVisible(!text.empty());
    NoticeST_->raise();
    if (!text.empty() && !inProgress) {
        QAccessibleEvent alert(NoticeST_, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

} // namespace velmarin
