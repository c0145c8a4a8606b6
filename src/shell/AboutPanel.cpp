#include "shell/AboutPanel.h"

#include "controls/AnchoredLayout.h"
#include "controls/Artwork.h"
#include "platform/QtText.h"

#include <QEvent>

namespace velmarin {

namespace {

constexpr QSize kLogoSize{96, 28};

QString aboutText() {
    return QStringLiteral("Velmarin\n\n"
                          "finds a word in scanned dictionaries and shows the page it is on.\n\n"
                          "Pick a group of dictionaries at the top left, type a word and press Return.\n\n"
                          "With thanks to all who scanned, indexed and shared old dictionaries, and to the makers "
                          "of the libraries that Velmarin uses: Qt, Leptonica, GraphicsMagick, utf8proc and "
                          "PCRE2.\n\n"
                          "This text disappears immediately when you execute a search.");
}

bool isOnDark(const QWidget& widget) {
    return widget.palette().color(QPalette::Window).lightness() < 128;
}

} // namespace

AboutPanel::AboutPanel(QWidget* parent, AnchoredLayout& layout)
    : QObject(parent), LOGO_(new QLabel(parent)), AboutST_(new QLabel(aboutText(), parent)) {
    LOGO_->setObjectName(QStringLiteral("LOGO"));
    LOGO_->setAccessibleName(QStringLiteral("Logo"));
    LOGO_->installEventFilter(this);
    layout.add(LOGO_, QRect(QPoint(723, 3), kLogoSize), Anchor::Top | Anchor::Right);
    showLogo();

    AboutST_->setObjectName(QStringLiteral("AboutST"));
    AboutST_->setTextFormat(Qt::PlainText);
    AboutST_->setWordWrap(true);
    AboutST_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    AboutST_->setStyleSheet(QStringLiteral("QLabel { color: #000080 }"));
    AboutST_->installEventFilter(this);
    layout.add(AboutST_, QRect(554, 155, 247, 570), Anchor::Top | Anchor::Right | Anchor::Bottom);
}

void AboutPanel::append(const std::string& text) {
    AboutST_->setText(AboutST_->text() + toQ(text));
}

void AboutPanel::hideAbout() {
    AboutST_->hide();
}

void AboutPanel::showLogo() {
    const auto draw = shownLogo_ == 0 ? Selorin_Logo_VerySmall : Halvenmark;
    LOGO_->setPixmap(draw(kLogoSize, LOGO_->devicePixelRatioF(), isOnDark(*LOGO_)));
}

bool AboutPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Enter) {
        if (watched == AboutST_)
            AboutST_MouseEnter();
        if (watched == LOGO_)
            LOGO_MouseEnter();
    }
    if (event->type() == QEvent::PaletteChange && watched == LOGO_)
        showLogo();
    return QObject::eventFilter(watched, event);
}

void AboutPanel::AboutST_MouseEnter() {
    hideAbout();
}

void AboutPanel::LOGO_MouseEnter() {
    shownLogo_ = 1 - shownLogo_;
    showLogo();
}

} // namespace velmarin
