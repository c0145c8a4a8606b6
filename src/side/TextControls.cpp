#include "side/TextControls.h"

#include "controls/AnchoredLayout.h"
#include "controls/TextStyleBevelButton.h"
#include "platform/QtText.h"
#include "side/TextArea.h"

namespace velmarin {

namespace {

const QColor kTextBackground(0xF9, 0xFF, 0xE8);
/// In points, until the user picks another size.
constexpr int kTextSizeAtOpening = 10;

void makeText(TextArea* EF, AnchoredLayout& layout) {
    EF->setObjectName(QStringLiteral("EF"));
    EF->setAccessibleName(QStringLiteral("What was looked up"));
    QPalette palette = EF->palette();
    palette.setColor(QPalette::Base, kTextBackground);
    palette.setColor(QPalette::Text, Qt::black);
    EF->setPalette(palette);
    EF->setTextSize(kTextSizeAtOpening);
    layout.add(EF, QRect(20, 3, 330, 547), Anchor::Left | Anchor::Top | Anchor::Right | Anchor::Bottom);
}

void makeStyleButton(TextStyleBevelButton* button, const char* name, const char* description, int top, TextArea* EF,
                     AnchoredLayout& layout) {
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(QLatin1String(description));
    layout.add(button, QRect(20, top, 75, 20), Anchor::Left | Anchor::Bottom);
    QObject::connect(button, &TextStyleBevelButton::Open, button, [button, EF] { button->SetObjObject(EF); });
    button->Event_Open();
}

} // namespace

TextControls::TextControls(QWidget* window, AnchoredLayout& layout)
    : EF(new TextArea(window)), BVfonts(new TextFontBevelButton(window)), BVsize(new TextSizeBevelButton(window)) {
    makeText(EF, layout);
    makeStyleButton(BVfonts, "BVfonts", "Font of the text", 557, EF, layout);
    makeStyleButton(BVsize, "BVsize", "Size of the text", 577, EF, layout);
    // The menus start at the font and size that the text has, so that these are saved.
    const std::string family = fromQ(QFontInfo(EF->font()).family());
    for (int row = 0; row < BVfonts->rowCount(); ++row)
        if (BVfonts->GetFontName(row) == family)
            BVfonts->setMenuValue(row);
    for (int row = 0; row < BVsize->rowCount(); ++row)
        if (BVsize->GetFontSize(row) == kTextSizeAtOpening)
            BVsize->setMenuValue(row);
}

} // namespace velmarin
