#include "scan/XmlText.h"

#include "scan/TextGeometry.h"
#include "text/NumberText.h"
#include "text/StringFields.h"
#include "text/Utf8.h"

#include <algorithm>
#include <string>

#include <pugixml.hpp>

namespace velmarin {

namespace {

constexpr std::size_t kMostBytes = std::size_t{64} << 20;
constexpr int kMostCoordinate = 10'000'000;

/// The name of an element without the prefix of its namespace.
std::string_view nameOf(const pugi::xml_node& node) {
    const std::string_view name = node.name();
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

/// Parses the XML as far as it is well-formed.
void parse(pugi::xml_document& document, std::string_view xml) {
    if (xml.size() <= kMostBytes)
        document.load_buffer(xml.data(), xml.size(), pugi::parse_default, pugi::encoding_auto);
}

/// The element after `node` in the order of the document, inside `top`; null after the last one. A loop, because depth
/// is the file's choice.
pugi::xml_node following(pugi::xml_node node, const pugi::xml_node& top, bool intoChildren = true) {
    if (intoChildren && node.first_child())
        return node.first_child();
    while (node != top && !node.next_sibling())
        node = node.parent();
    return node == top ? pugi::xml_node() : node.next_sibling();
}

/// Calls `visit` for each element in `top`, itself included, until it returns false.
template <typename Visit> void forEachElement(const pugi::xml_node& top, Visit visit) {
    for (pugi::xml_node node = top; node; node = following(node, top)) {
        if (node.type() == pugi::node_element && !visit(node))
            return;
    }
}

template <typename Fits> pugi::xml_node firstElement(const pugi::xml_node& top, Fits fits) {
    pugi::xml_node found;
    forEachElement(top, [&](const pugi::xml_node& node) {
        if (fits(node))
            found = node;
        return !found;
    });
    return found;
}

/// All characters in an element, with blanks at the ends cut off.
std::string textIn(const pugi::xml_node& top) {
    std::string text;
    for (pugi::xml_node node = top; node; node = following(node, top))
        text += node.value();
    return toValidUtf8(trimmed(text));
}

int coordinate(double value) {
    return std::clamp(toInt32(value), -kMostCoordinate, kMostCoordinate);
}

PageBox boxOf(double left, double top, double right, double bottom) {
    PageBox box{coordinate(left), coordinate(top)};
    box.width = std::max(0, coordinate(right) - box.x);
    box.height = std::max(0, coordinate(bottom) - box.y);
    return box;
}

PageBox extentOf(const PageText& text) {
    PageBox all;
    for (const TextLine& line : text.lines)
        all = unitedBox(all, line.box);
    return all;
}

/// The text, unless it is a page of no size.
std::optional<PageText> withSize(PageText text, int width, int height) {
    const PageBox all = extentOf(text);
    text.width = width > 0 ? width : all.right();
    text.height = height > 0 ? height : all.bottom();
    return text.width > 0 && text.height > 0 ? std::optional(std::move(text)) : std::nullopt;
}

/// The parts that begin with a tag in which `mark` occurs and that `take` takes.
template <typename Take> std::vector<TextPart> partsWith(std::string_view all, std::string_view mark, Take take) {
    std::vector<TextPart> parts;
    std::size_t end = 0; // of what was searched: nothing is searched twice, as a hostile file would have it
    for (std::size_t at = all.find(mark); at != std::string_view::npos; at = all.find(mark, std::max(end, at + 1))) {
        const std::size_t begin = all.substr(end, at - end).rfind('<');
        if (begin == std::string_view::npos) {
            end = at;
            continue;
        }
        TextPart part{.image = {}, .from = end + begin};
        end = std::min(all.find_first_of("<>", at), all.size());
        if (end == all.size() || all[end] == '<')
            continue;
        ++end;
        pugi::xml_document tag;
        parse(tag, all.substr(part.from, end - part.from));
        if (!take(tag.first_child(), part))
            continue;
        if (!parts.empty())
            parts.back().size = part.from - parts.back().from;
        part.size = all.size() - part.from;
        parts.push_back(std::move(part));
    }
    return parts;
}

// hOCR

bool hasClass(const pugi::xml_node& node, std::string_view wanted) {
    const std::string all = " " + std::string(node.attribute("class").value()) + " ";
    return all.find(" " + std::string(wanted) + " ") != std::string::npos;
}

/// The numbers of a property in the title: "bbox 10 20 30 40; x_wconf 93".
std::vector<double> property(const pugi::xml_node& node, std::string_view name) {
    std::string_view title = node.attribute("title").value();
    std::vector<double> numbers;
    while (!title.empty()) {
        const std::size_t end = std::min(title.find(';'), title.size());
        std::string_view part = title.substr(0, end);
        title.remove_prefix(std::min(end + 1, title.size()));
        part.remove_prefix(std::min(part.find_first_not_of(' '), part.size()));
        if (!part.starts_with(name) || part.size() == name.size() || part[name.size()] != ' ')
            continue;
        part.remove_prefix(name.size());
        while (part.find_first_not_of(' ') != std::string_view::npos) {
            part.remove_prefix(part.find_first_not_of(' '));
            numbers.push_back(CDbl(part));
            part.remove_prefix(std::min(part.find(' '), part.size()));
        }
        break;
    }
    return numbers;
}

PageBox hocrBox(const pugi::xml_node& node) {
    const std::vector<double> box = property(node, "bbox");
    return box.size() == 4 ? boxOf(box[0], box[1], box[2], box[3]) : PageBox();
}

bool isHocrLine(const pugi::xml_node& node) {
    for (const char* name : {"ocr_line", "ocrx_line", "ocr_header", "ocr_caption", "ocr_textfloat", "ocr_footer"}) {
        if (hasClass(node, name))
            return true;
    }
    return false;
}

TextWord hocrWord(const pugi::xml_node& node) {
    TextWord word{.text = textIn(node), .box = hocrBox(node)};
    if (const auto confidence = property(node, "x_wconf"); !confidence.empty())
        word.confidence = std::clamp(confidence[0] / 100, 0.0, 1.0);
    word.bold = static_cast<bool>(
        firstElement(node, [](const pugi::xml_node& part) { return nameOf(part) == "strong" || nameOf(part) == "b"; }));
    return word;
}

/// The file name in the title of a page: "image "scans/p1.tif"; bbox 0 0 600 800".
std::string imageOf(std::string_view title) {
    constexpr std::string_view kName = "image ";
    title.remove_prefix(std::min(title.find(kName), title.size()));
    title.remove_prefix(std::min(kName.size(), title.size()));
    const bool quoted = title.starts_with('"') || title.starts_with('\'');
    const std::size_t end = quoted ? title.find(title.front(), 1) : title.find(';');
    title = title.substr(quoted ? 1 : 0, end == std::string_view::npos ? end : end - (quoted ? 1 : 0));
    const std::size_t folder = title.find_last_of("/\\");
    return std::string(folder == std::string_view::npos ? title : title.substr(folder + 1));
}

/// HTML as XML: from its body on, with the tags closed that have no content.
std::string closedTags(std::string_view html) {
    constexpr std::string_view kOpenTags[] = {"<br", "<hr", "<img", "<meta", "<link", "<input", "<wbr"};
    if (const std::size_t body = html.find("<body"); body != std::string_view::npos)
        html.remove_prefix(body);
    std::string xml;
    while (!html.empty()) {
        const std::size_t tag = std::min(html.find('<'), html.size());
        const std::size_t end = std::min(html.find('>', tag), html.size());
        xml += html.substr(0, end);
        const std::string_view element = html.substr(tag, end - tag);
        html.remove_prefix(end);
        const bool open = std::any_of(std::begin(kOpenTags), std::end(kOpenTags), [&](std::string_view each) {
            return element.starts_with(each) &&
                   (element.size() == each.size() || !std::isalnum(static_cast<unsigned char>(element[each.size()])));
        });
        if (open && !element.ends_with('/'))
            xml += '/';
        if (!html.empty()) {
            xml += '>';
            html.remove_prefix(1);
        }
    }
    return xml;
}

// ALTO

double number(const pugi::xml_node& node, const char* name) {
    return CDbl(node.attribute(name).value());
}

TextWord altoWord(const pugi::xml_node& node) {
    TextWord word{.text = toValidUtf8(node.attribute("CONTENT").value())};
    const double x = number(node, "HPOS"), y = number(node, "VPOS");
    word.box = boxOf(x, y, x + number(node, "WIDTH"), y + number(node, "HEIGHT"));
    if (const pugi::xml_attribute confidence = node.attribute("WC"))
        word.confidence = std::clamp(CDbl(confidence.value()), 0.0, 1.0);
    word.bold = std::string_view(node.attribute("STYLE").value()).find("bold") != std::string_view::npos;
    for (const pugi::xml_node& part : node.children()) {
        if (nameOf(part) == "ALTERNATIVE")
            word.others.push_back(textIn(part));
    }
    return word;
}

// pdftotext

constexpr double kTenths = 10; ///< a tenth of a point is finer than a pixel at 600 dpi

TextWord pdfWord(const pugi::xml_node& node) {
    return {.text = textIn(node),
            .box = boxOf(number(node, "xMin") * kTenths, number(node, "yMin") * kTenths, number(node, "xMax") * kTenths,
                         number(node, "yMax") * kTenths)};
}

/// Collects the lines of a page: what `isLine` accepts, and in it what `wordOf` makes a word of.
template <typename IsLine, typename IsWord, typename WordOf>
PageText linesOf(const pugi::xml_node& page, IsLine isLine, IsWord isWord, WordOf wordOf) {
    PageText text;
    TextLine line;
    forEachElement(page, [&](const pugi::xml_node& node) {
        if (isLine(node)) {
            appendLine(text, std::move(line));
            line = {};
        } else if (isWord(node)) {
            line.words.push_back(wordOf(node));
        }
        return true;
    });
    appendLine(text, std::move(line));
    return text;
}

auto named(std::string_view name) {
    return [name](const pugi::xml_node& node) { return nameOf(node) == name; };
}

} // namespace

std::optional<PageText> readHocr(std::string_view html) {
    pugi::xml_document document;
    if (html.size() <= kMostBytes)
        parse(document, closedTags(html));
    const pugi::xml_node page =
        firstElement(document, [](const pugi::xml_node& node) { return hasClass(node, "ocr_page"); });
    if (!page)
        return std::nullopt;
    const PageBox box = hocrBox(page);
    return withSize(
        linesOf(
            page, isHocrLine, [](const pugi::xml_node& node) { return hasClass(node, "ocrx_word"); }, hocrWord),
        box.right(), box.bottom());
}

std::vector<TextPart> hocrParts(std::string_view html) {
    return partsWith(html, "ocr_page", [](const pugi::xml_node& node, TextPart& part) {
        part.image = imageOf(node.attribute("title").value());
        return hasClass(node, "ocr_page");
    });
}

std::vector<TextPart> altoParts(std::string_view xml) {
    return partsWith(xml, "Page", [](const pugi::xml_node& node, TextPart&) { return nameOf(node) == "Page"; });
}

std::optional<PageText> readAlto(std::string_view xml) {
    pugi::xml_document document;
    parse(document, xml);
    if (!firstElement(document, named("alto")))
        return std::nullopt;
    const pugi::xml_node page = firstElement(document, named("Page"));
    if (!page)
        return std::nullopt;
    return withSize(linesOf(page, named("TextLine"), named("String"), altoWord), coordinate(number(page, "WIDTH")),
                    coordinate(number(page, "HEIGHT")));
}

std::optional<PageText> readPdfText(std::string_view xml) {
    pugi::xml_document document;
    parse(document, xml);
    const pugi::xml_node page = firstElement(document, named("page"));
    if (!page)
        return std::nullopt;
    return withSize(linesOf(page, named("line"), named("word"), pdfWord), coordinate(number(page, "width") * kTenths),
                    coordinate(number(page, "height") * kTenths));
}

} // namespace velmarin
