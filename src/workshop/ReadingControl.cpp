#include "workshop/ReadingControl.h"

#include "platform/QtText.h"
#include "text/NumberText.h"
#include "workshop/NoticeBar.h"
#include "workshop/ReadingBar.h"
#include "workshop/ScannedBook.h"
#include "workshop/WorkshopModel.h"

#include <utility>

namespace velmarin {

namespace {

/// What is to be done when all pages are read.
QString textOfEnd(std::size_t doubtful) {
    if (doubtful == 0)
        return QStringLiteral("All pages are read, and none is doubtful. “Try it…” in the menu “Book” tries a word.");
    return QStringLiteral("All pages are read. Look at the %1: if the words are right, press Return; if not, type "
                          "the right ones first.")
        .arg(doubtful == 1 ? QStringLiteral("doubtful one")
                           : toQ(Format(static_cast<double>(doubtful), "#,##0")) + QStringLiteral(" doubtful ones"));
}

QString textOfFailures(const Failures& failures) {
    const QString first = toQ(failures.front().message());
    return failures.size() == 1
               ? QStringLiteral("One page cannot be read: ") + first
               : QStringLiteral("%1 pages cannot be read. The first of them: %2").arg(failures.size()).arg(first);
}

} // namespace

ReadingControl::ReadingControl(ScannedBook& book, WorkshopModel& model, ReadingBar& bar, NoticeBar& notice)
    : book_(book), model_(model), bar_(bar), notice_(notice), run_(book.folder(), this) {
    connect(&run_, &ReadingRun::progressed, this, [this](const ReadingProgress& progress) {
        if (progress.done < progress.of)
            bar_.showRunning(progress);
    });
    connect(&run_, &ReadingRun::read, this, &ReadingControl::takeReadings);
    connect(&run_, &ReadingRun::ended, this, &ReadingControl::end);
    connect(&bar_, &ReadingBar::stopWanted, &run_, &ReadingRun::stop);
    connect(&bar_, &ReadingBar::goOnWanted, this, &ReadingControl::start);
}

void ReadingControl::start() {
    run_.start();
}

void ReadingControl::changeSettings(std::function<void(BookSettings&)> change) {
    changes_.push_back(std::move(change));
    if (run_.running())
        run_.stop();
    else if (applyChanges())
        start();
}

void ReadingControl::changePage(std::function<void(BookSettings&, int)> change) {
    if (const auto page = book_.scanPage(model_.currentPage().page))
        changeSettings([change = std::move(change), page = *page](BookSettings& settings) { change(settings, page); });
}

bool ReadingControl::applyChanges() {
    BookSettings settings = book_.folder().settings();
    for (const auto& change : std::exchange(changes_, {}))
        change(settings);
    const Result saved = book_.folder().saveSettings(std::move(settings));
    if (!saved)
        notice_.tell(toQ(saved.failure().message()));
    picturesChange_ = true;
    return static_cast<bool>(saved);
}

void ReadingControl::takeReadings(const std::shared_ptr<const BookReadings>& readings) {
    book_.takeReadings(readings);
    model_.takeRead(book_.mended(model_.draft()));
    emit taken();
}

void ReadingControl::end(const BookReadingResult& result) {
    if (!changes_.empty()) {
        if (applyChanges())
            start();
        return;
    }
    if (std::exchange(picturesChange_, false))
        emit picturesChanged();
    if (result.result && !result.stopped)
        bar_.showDone();
    else
        bar_.showStopped();
    if (result.result && !result.stopped && result.read > 0 && result.failures.empty())
        notice_.tell(textOfEnd(model_.counts().toLookAt()));
    else if (!result.result)
        notice_.tell(QStringLiteral("The book cannot be read: %1. “Languages and pages…” in the menu “Book” chooses "
                                    "how it is read.")
                         .arg(toQ(result.result.failure().message())));
    else if (!result.failures.empty())
        notice_.tell(textOfFailures(result.failures));
}

} // namespace velmarin
