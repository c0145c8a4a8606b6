#include "side/SubWindow.h"

#include "controls/AnchoredLayout.h"
#include "controls/BevelButton.h"
#include "controls/DevicePixels.h"
#include "controls/FittedText.h"
#include "controls/PopupMenu.h"
#include "controls/QtText.h"
#include "controls/TextStyleBevelButton.h"
#include "side/MainWindowPort.h"
#include "side/TextArea.h"

#include <QColorDialog>
#include <QLabel>
#include <QMainWindow>
#include <QPainter>
#include <QStyle>

#include <utility>

namespace velmarin {

namespace {

constexpr QSize kDesignSize(352, 705);
constexpr QSize kMinimumSize(350, 64);
constexpr int kMaximumSide = 32000;
const QColor kTextBackground(0xF9, 0xFF, 0xE8);
constexpr std::chrono::milliseconds kClickIsThrough{60};
/// The size of the text before one is picked, in points.
constexpr int kTextSizeAtOpening = 10;

constexpr Anchors kLeftBottom = Anchor::Left | Anchor::Bottom;
constexpr Anchors kAcrossBottom = Anchor::Left | Anchor::Right | Anchor::Bottom;

FindBar::SelectColor selectColorOrDefault(FindBar::SelectColor given, QWidget* parent) {
    if (given)
        return given;
    return [parent](const QColor& present) -> std::optional<QColor> {
        const QColor chosen = QColorDialog::getColor(present, parent);
        return chosen.isValid() ? std::optional(chosen) : std::nullopt;
    };
}

Qt::WindowFlags flagsFor(Hanging hanging) {
    return hanging == Hanging::Window ? Qt::Tool | Qt::FramelessWindowHint : Qt::Widget;
}

} // namespace

SubWindow::SubWindow(MainWindowPort& mainWindow, SideServices services, Hanging hanging)
    : QWidget(mainWindow.window(), flagsFor(hanging)), MainWin_(mainWindow), services_(std::move(services)),
      groupFolder_(mainWindow.pDictionaryGroupFolder()), layout_(new AnchoredLayout(this, kDesignSize)),
      EF_(new TextArea(this)), widthAtOpening_(kDesignSize.width()) {
    setObjectName(QStringLiteral("SubWindow"));
    setAccessibleName(QStringLiteral("Side window"));
    setAttribute(Qt::WA_QuitOnClose, false);
    setMinimumSize(kMinimumSize);
    setMaximumSize(kMaximumSide, kMaximumSide);
    resize(kDesignSize);
    makeText();
    makeChoices();
    makeUserDictionaries();
    notice_ =
        new WaitNotice(QStringLiteral("Waiting for WORDS, and searches wait too. Press Stop to go on without it."), EF_,
                       services_.clock);
    hanging_ = new SideHanging(hanging, this, mainWindow.window(), kMinimumSize.width(), kMaximumSide);
    connect(hanging_, &SideHanging::mainWindowClosed, this, &SubWindow::shut);
    goBack_ = new QTimer(this);
    goBack_->setObjectName(QStringLiteral("goBack"));
    goBack_->setSingleShot(true);
    goBack_->setInterval(kClickIsThrough);
    connect(goBack_, &QTimer::timeout, this, &SubWindow::goBackToMainWindow);
}

SubWindow::~SubWindow() {
    // Its fields lose the focus as they go, and the window that would be told is no longer whole.
    findBar_->disconnect(this);
    delete hanging_;
}

void SubWindow::open() {
    mSetPref();
    if (shut_)
        return;
    hanging_->show(widthAtOpening_);
    settingsAtOpening_ = settings();
    // A panel gets its width only with the next layout of the main window.
    settingsAtOpening_->width = widthAtOpening_;
}

void SubWindow::makeText() {
    EF_->setObjectName(QStringLiteral("EF"));
    EF_->setAccessibleName(QStringLiteral("What was looked up"));
    QPalette colours = EF_->palette();
    colours.setColor(QPalette::Base, kTextBackground);
    colours.setColor(QPalette::Text, Qt::black);
    EF_->setPalette(colours);
    EF_->setTextSize(kTextSizeAtOpening);
    layout_->add(EF_, QRect(20, 3, 330, 547), kAcrossBottom | Anchor::Top);

    BVfonts_ = new TextFontBevelButton(this);
    BVfonts_->setObjectName(QStringLiteral("BVfonts"));
    BVfonts_->setAccessibleName(QStringLiteral("Font of the text"));
    layout_->add(BVfonts_, QRect(20, 557, 75, 20), kLeftBottom);
    connect(BVfonts_, &TextFontBevelButton::Open, this, [this] { BVfonts_->SetObjObject(EF_); });
    BVfonts_->Event_Open();

    BVsize_ = new TextSizeBevelButton(this);
    BVsize_->setObjectName(QStringLiteral("BVsize"));
    BVsize_->setAccessibleName(QStringLiteral("Size of the text"));
    layout_->add(BVsize_, QRect(20, 577, 75, 20), kLeftBottom);
    connect(BVsize_, &TextSizeBevelButton::Open, this, [this] { BVsize_->SetObjObject(EF_); });
    BVsize_->Event_Open();

    // The menus begin at the font and size that the text has, so that these are what the settings keep.
    const std::string family = fromQ(QFontInfo(EF_->font()).family());
    for (int row = 0; row < BVfonts_->rowCount(); ++row)
        if (BVfonts_->GetFontName(row) == family)
            BVfonts_->setMenuValue(row);
    for (int row = 0; row < BVsize_->rowCount(); ++row)
        if (BVsize_->GetFontSize(row) == kTextSizeAtOpening)
            BVsize_->setMenuValue(row);

    findBar_ = new FindBar(selectColorOrDefault(services_.selectColor, this), this, *layout_);
    connect(findBar_, &FindBar::run, this, [this] { mDoFind(services_.host.AsyncOptionKey()); });
    connect(findBar_, &FindBar::wordChanged, this, [this] { steps_.wordChanged(); });
    connect(findBar_, &FindBar::cleared, this, [this] { steps_.cleared(); });
    connect(findBar_, &FindBar::leave, this, [this] { MainWin_.focusSearch(true); });
    connect(findBar_, &FindBar::focused, this, [this](bool hasFocus) { MainWin_.setOKBTDefault(!hasFocus); });
}

QCheckBox* SubWindow::checkBox(const char* name, const QString& caption, const QRect& place) {
    auto* box = new QCheckBox(caption, this);
    box->setObjectName(QLatin1String(name));
    box->setFocusPolicy(Qt::TabFocus);
    const int indicator = style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, box) +
                          style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, box);
    box->setFont(fontForWidth(fontForHeight(box->font(), place.height()), caption, place.width() - indicator));
    layout_->add(box, place, kLeftBottom);
    return box;
}

void SubWindow::makeChoices() {
    const auto separator = [this](int number, const QRect& place, QFrame::Shape shape, Anchors anchors) {
        auto* line = new QFrame(this);
        line->setObjectName(QStringLiteral("Sep.%1").arg(number));
        line->setFrameShape(shape);
        line->setFrameShadow(QFrame::Sunken);
        layout_->add(line, place, anchors);
    };
    separator(0, QRect(0, 601, 350, 2), QFrame::HLine, kAcrossBottom);
    SyncronizeCB_ = checkBox("SyncronizeCB", QStringLiteral("Synchronized search"), QRect(20, 608, 179, 20));
    SyncronizeCB_->setToolTip(QStringLiteral("On this window the same word will be seached as on the maindow."));
    DontClearCB_ = checkBox("DontClearCB", QStringLiteral("I clear the result by myself."), QRect(20, 630, 207, 20));
    DontClearCB_->setToolTip(QStringLiteral("The contents of this window will never be deleted automatically."));
    separator(1, QRect(219, 603, 8, 49), QFrame::VLine, kLeftBottom);
    LatinCB_ = checkBox("LatinCB", QStringLiteral("Latin Words"), QRect(231, 608, 100, 20));
    connect(LatinCB_, &QCheckBox::clicked, this, &SubWindow::LatinCB_Action);
    DicAppCB_ = checkBox("DicAppCB", QStringLiteral("Dictionary.app"), QRect(231, 629, 112, 20));
    DicAppCB_->setChecked(true);
    separator(2, QRect(0, 651, 350, 2), QFrame::HLine, kAcrossBottom);
}

void SubWindow::makeUserDictionaries() {
    auto* StaticText1 = new QLabel(QStringLiteral("User Dic."), this);
    StaticText1->setObjectName(QStringLiteral("StaticText1"));
    StaticText1->setToolTip(QStringLiteral("To make a user dictionary, you have to prepare data with format \"head "
                                           "word + tab + meaning + return\"."));
    StaticText1->setFont(fontForWidth(StaticText1->font(), StaticText1->text(), 66));
    layout_->add(StaticText1, QRect(20, 659, 72, 20), kLeftBottom);

    UserDicBT_ = new BevelButton("Make", this);
    UserDicBT_->setObjectName(QStringLiteral("UserDicBT"));
    UserDicBT_->setAccessibleName(QStringLiteral("Make a user dictionary"));
    layout_->add(UserDicBT_, QRect(87, 656, 67, 22), kLeftBottom);
    connect(UserDicBT_, &BevelButton::clicked, this, [this] { whenFree([this] { mMakeUserDictionary(); }); });

    UserDicCB_ = checkBox("UserDicCB", QStringLiteral("Use"), QRect(166, 656, 53, 20));
    UserDicPU_ = new PopupMenu(this);
    UserDicPU_->setObjectName(QStringLiteral("UserDicPU"));
    StaticText1->setBuddy(UserDicPU_);
    layout_->add(UserDicPU_, QRect(231, 656, 112, 20), kLeftBottom);
    connect(UserDicCB_, &QCheckBox::clicked, UserDicPU_, &QWidget::setEnabled);
    connect(UserDicPU_, &PopupMenu::aboutToChoose, this, &SubWindow::mMakeUserDicPU);
}

void SubWindow::paintEvent(QPaintEvent*) {
    if (!isWindow())
        return;
    // A window without a frame of the desktop's has a thin one of its own.
    QPainter painter(this);
    const DevicePixels device(painter);
    const QRect all = device.rect(rect());
    const int line = device.length(1);
    const QColor colour = palette().color(QPalette::Window).darker(160);
    painter.fillRect(QRect(all.topLeft(), QSize(all.width(), line)), colour);
    painter.fillRect(QRect(all.x(), all.bottom() + 1 - line, all.width(), line), colour);
    painter.fillRect(QRect(all.topLeft(), QSize(line, all.height())), colour);
    painter.fillRect(QRect(all.right() + 1 - line, all.y(), line, all.height()), colour);
}

} // namespace velmarin
