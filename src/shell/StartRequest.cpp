#include "shell/StartRequest.h"

#include "platform/ImageFile.h"
#include "platform/QtText.h"
#include "search/QueryBar.h"
#include "shell/GroupPicker.h"
#include "shell/MainWindow.h"
#include "shell/NoGroupNotice.h"

#include <QCoreApplication>
#include <QImage>
#include <QLineEdit>
#include <QPixmap>
#include <QTimer>

#include <iostream>

namespace velmarin {

namespace {

constexpr int kFailed = 2;

int fail(const std::string& why) {
    std::cerr << "velmarin: " << why << '\n';
    return kFailed;
}

/// What cannot be done is shown in the window too, where the word then waits for a pick.
int pickAndSearch(MainWindow& window, const StartRequest& request) {
    const bool found = request.group.empty() || window.parts().groupPicker->pickNamed(request.group);
    if (found && window.hasGroup()) {
        window.search(request.word);
        return 0;
    }
    if (window.hasGroup())
        window.parts().queryBar->SearchEF()->setText(toQ(request.word));
    else
        window.parts().notice->setWaitingWord(request.word);
    if (!found) {
        window.parts().notice->setReason("There is no group called ‘" + request.group + "’.");
        return fail("there is no group called \"" + request.group + "\"");
    }
    if (!request.word.empty() && window.parts().groupPicker->rowCount() == 0)
        window.parts().notice->setReason("There are no dictionaries yet.");
    if (!request.group.empty())
        return fail("the group \"" + request.group + "\" could not be opened");
    return request.word.empty() ? 0 : fail("a word can only be searched in a group: name one with --group");
}

} // namespace

void runStartRequest(MainWindow& window, const StartRequest& request) {
    const int status = pickAndSearch(window, request);
    if (request.pictureFile.empty())
        return;
    if (status != 0) {
        QCoreApplication::exit(status);
        return;
    }
    // One turn of the event loop later everything is laid out and painted.
    QTimer::singleShot(0, &window, [&window, file = request.pictureFile] {
        const Result saved = saveImage(window.grab().toImage(), file);
        QCoreApplication::exit(saved ? 0 : fail(saved.failure().message()));
    });
}

} // namespace velmarin
