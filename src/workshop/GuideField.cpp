#include "workshop/GuideField.h"

#include "platform/QtText.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace velmarin {

namespace {

constexpr double kEnlarged = 1.25;

QFont enlarged(QFont font) {
    font.setPointSizeF(font.pointSizeF() * kEnlarged);
    return font;
}

} // namespace

GuideField::GuideField(const QString& label, QWidget* parent)
    : QWidget(parent), edit_(new QLineEdit(this)), message_(new QLabel(this)), others_(new QLabel(this)) {
    auto* caption = new QLabel(label, this);
    caption->setBuddy(edit_);
    edit_->setFont(enlarged(edit_->font()));
    message_->setTextFormat(Qt::PlainText);
    message_->setWordWrap(true);
    message_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // Two lines each, so that nothing moves from page to page.
    for (QLabel* label : {message_, others_})
        label->setFixedHeight(2 * label->fontMetrics().lineSpacing() + 2);
    others_->setTextFormat(Qt::RichText);
    others_->setWordWrap(true);
    others_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    others_->setTextInteractionFlags(Qt::LinksAccessibleByMouse);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(caption);
    column->addWidget(edit_);
    column->addWidget(message_);
    column->addWidget(others_);
    connect(others_, &QLabel::linkActivated, this, [this](const QString& digit) { emit otherChosen(digit.toInt()); });
    connect(edit_, &QLineEdit::textEdited, this, &GuideField::edited);
}

std::string GuideField::word() const {
    return fromQ(edit_->text().trimmed());
}

void GuideField::showWord(const std::string& word) {
    edit_->setText(toQ(word));
}

void GuideField::showProblem(const std::string& problem) {
    const bool well = problem.empty();
    const QString text = word().empty() ? QString()
                         : well         ? QStringLiteral("✓ in order")
                                        : QStringLiteral("⚠ ") + toQ(problem);
    message_->setText(text);
    QFont font = message_->font();
    font.setBold(!well);
    message_->setFont(font);
    edit_->setAccessibleDescription(text);
}

void GuideField::showOthers(const std::vector<std::string>& words, int firstDigit) {
    QStringList links;
    for (const std::string& word : words) {
        const QString shown = toQ(word).toHtmlEscaped().replace(u' ', QStringLiteral("&nbsp;"));
        links.append(QStringLiteral("Alt+%1&nbsp;<a href=\"%1\">%2</a>").arg(firstDigit++).arg(shown));
    }
    others_->setText(links.join(QStringLiteral(" &nbsp; ")));
}

void GuideField::type(const std::string& word) {
    edit_->selectAll();
    edit_->insert(toQ(word));
    edit_->selectAll();
    edit_->setFocus();
    emit edited();
}

} // namespace velmarin
