#include "workshop/WelcomePane.h"

#include "controls/PushButton.h"
#include "platform/QtText.h"
#include "scan/OpenScan.h"

#include <QLabel>
#include <QVBoxLayout>

namespace velmarin {

namespace {

/// In logical pixels: a line of text that is read with ease.
constexpr int kTextWidth = 460;
constexpr double kTitleSize = 1.6;

void addIntroduction(QWidget* inner, QVBoxLayout* column) {
    auto* title = new QLabel(QStringLiteral("Make a dictionary of a scanned book"), inner);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * kTitleSize);
    title->setFont(large);
    auto* text = new QLabel(
        QStringLiteral(
            "The workshop reads the headwords at the top of each page and puts them in order. You look only "
            "at the pages that it is not sure of. Then every word of the book opens its page in Velmarin.\n\n"
            "The scan itself is never changed."),
        inner);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    column->addWidget(title);
    column->addWidget(text);
}

} // namespace

WelcomePane::WelcomePane(QWidget* parent) : QWidget(parent) {
    auto* inner = new QWidget(this);
    inner->setFixedWidth(kTextWidth);
    auto* column = new QVBoxLayout(inner);
    column->setSpacing(10);
    addIntroduction(inner, column);
    column->addSpacing(10);
    const auto add = [&](const char* name, const QString& caption, const QString& what, void (WelcomePane::*wanted)()) {
        auto* button = new PushButton(caption, inner);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(true);
        button->setAccessibleDescription(what);
        auto* label = new QLabel(what, inner);
        label->setWordWrap(true);
        connect(button, &QPushButton::clicked, this, wanted);
        column->addWidget(button);
        column->addWidget(label);
        column->addSpacing(6);
    };
    QString kinds = toQ(kScanFileKinds);
    kinds[0] = kinds[0].toUpper();
    add("OpenScanBT", QStringLiteral("Open a &scan…"), kinds, &WelcomePane::scanWanted);
    add("OpenFolderBT", QStringLiteral("Open a folder of page &images…"), QStringLiteral("One picture a page"),
        &WelcomePane::folderWanted);
    add("OpenBookBT", QStringLiteral("Open a b&ook…"), QStringLiteral("Go on with a book that you have begun"),
        &WelcomePane::bookWanted);
    add("OpenDictionaryBT", QStringLiteral("Correct a &dictionary…"),
        QStringLiteral("A word of a dictionary that you have opens a wrong page"), &WelcomePane::dictionaryWanted);
    auto* outer = new QVBoxLayout(this);
    outer->addStretch(1);
    auto* middle = new QHBoxLayout;
    middle->addStretch(1);
    middle->addWidget(inner);
    middle->addStretch(1);
    outer->addLayout(middle);
    outer->addStretch(2);
}

} // namespace velmarin
