#include "side/TextArea.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace velmarin {
namespace {

TEST(Pasting, TakesPlainTextAlone) {
    const struct {
        const char* name;
        void (*fill)(QMimeData&);
        const char* text; ///< of "a|b" afterwards, with the bar selected before
    } cases[] = {{"Nothing", [](QMimeData&) {}, "a|b"},
                 {"EmptyText", [](QMimeData& data) { data.setText(""); }, "a|b"},
                 {"Picture", [](QMimeData& data) { data.setData("image/png", "x"); }, "a|b"},
                 {"Text", [](QMimeData& data) { data.setText("one\r\ntwo"); }, "aone\ntwob"},
                 {"StyledText",
                  [](QMimeData& data) {
                      data.setHtml("<h1>big</h1>");
                      data.setText("big");
                  },
                  "abigb"},
                 {"Markdown",
                  [](QMimeData& data) {
                      data.setData("text/markdown", "# x");
                      data.setText("# big");
                  },
                  "a# bigb"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        auto offer = std::make_unique<QMimeData>();
        each.fill(*offer);
        QApplication::clipboard()->setMimeData(offer.release());
        TextArea area;
        area.setWholeText("a|b");
        area.select(1, 1);
        QTest::keyClick(&area, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(area.Text(), each.text);
        EXPECT_EQ(area.document()->find("big").charFormat().fontPointSize(), 0);
    }
}

} // namespace
} // namespace velmarin
