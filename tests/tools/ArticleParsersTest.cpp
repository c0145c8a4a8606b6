#include <string>

#include <gtest/gtest.h>

#include "make_samples/Parsers.h"
#include "make_samples/Text.h"
#include "text/FindReplace.h"

namespace velmarin {
namespace {

/// The markup of all paragraphs, '|' between them, in short: *bold* /italic/ ^small capitals^.
std::string told(const std::vector<Paragraph>& paragraphs) {
    std::string out;
    for (const Paragraph& paragraph : paragraphs)
        out += (out.empty() ? "" : "|") + paragraph.markup;
    const std::pair<const char*, const char*> signs[] = {{"<b>", "*"},
                                                         {"</b>", "*"},
                                                         {"<i>", "/"},
                                                         {"</i>", "/"},
                                                         {"<span variant=\"small-caps\">", "^"},
                                                         {"<span color=\"#ac241c\">", "!"},
                                                         {"</span>", "^"}};
    for (const auto& [markup, sign] : signs)
        out = ReplaceAllB(out, markup, sign);
    return out;
}

TEST(GcideLetters, SignsInBracketsBecomeLettersAndOtherBracketsStay) {
    struct Row {
        const char* reason;
        const char* coded;
        const char* letters;
    };
    const Row rows[] = {
        {"mark before", "caf['e] [=a]", "café ā"},
        {"mark after", "p[a^]l[i^]mp", "pălĭmp"},
        {"ligatures", "[AE]sop, [oe]dema", "Æsop, œdema"},
        {"named", "[thorn]at [aum]", "þat ä"},
        {"no sign", "to reject. [Obs.]", "to reject. [Obs.]"},
        {"a letter", "[F. abandon]", "[F. abandon]"},
        {"never closed", "a [b", "a [b"},
        {"empty", "[]", "[]"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(gcideLetters(row.coded), row.letters) << row.reason;
}

TEST(GcideArticle, HeadingIsToldFromTheTextByWhereItsLinesBreak) {
    const GcideArticle article =
        parseGcideArticle("Mouse \\Mouse\\ (mous), n.; pl. {Mice} (m[imac]s). [OE. mous,\n   mus.]\n"
                          "   1. (Zool.) A small rodent.\n      [1913 Webster]\n\n"
                          "            Not even a mouse.                        --Moore.\n      [1913 Webster]\n\n"
                          "   2. An electronic device.\n      [PJC]\n\n   Syn: Rodent.\n      [1913 Webster]\n");
    EXPECT_EQ(article.headword, "Mouse");
    EXPECT_EQ(article.pronunciation, "mous");
    EXPECT_EQ(article.wordClass, "n.; pl. Mice.");
    EXPECT_EQ(article.etymology, "[OE. mous, mus.]");
    ASSERT_EQ(article.blocks.size(), 3U) << "what later editors added is left out";
    EXPECT_EQ(article.blocks[0].text, "1. (Zool.) A small rodent.");
    EXPECT_EQ(article.blocks[1].kind, GcideArticle::Block::Kind::Quotation);
    EXPECT_EQ(article.blocks[2].kind, GcideArticle::Block::Kind::Synonyms);
}

TEST(GcideArticle, AccentsDivideTheWord) {
    EXPECT_EQ(parseGcideArticle("palimpsest \\pal\"imp*sest\\, n.\n   A parchment.\n").divided, "pal′imp·sest");
    EXPECT_EQ(parseGcideArticle("Mutability \\Mu`ta*bil\"i*ty\\, n.\n   Change.\n").divided, "Mu″ta·bil′i·ty");
    EXPECT_EQ(parseGcideArticle("no heading at all\n").headword, "");
    EXPECT_EQ(parseGcideArticle("").headword, "");
}

TEST(RichText, MarkupBecomesStyles) {
    const auto rich = [](const char* text) { return told({{Setting::Hanging, false, false, richText(text)}}); };
    EXPECT_EQ(rich("See {Ban}, v."), "See ^Ban^, v.");
    EXPECT_EQ(rich("\"A _bad_ end,\" 'tis said"), "“A /bad/ end,” ’tis said");
    EXPECT_EQ(rich("Hope was overthrown. --I. Taylor."), "Hope was overthrown. —\u00A0/I. Taylor./");
    EXPECT_EQ(rich("to yield; -- often bad"), "to yield; — often bad");
}

TEST(RichText, CutsFallOnSentencesAndLeaveNothingOpen) {
    EXPECT_EQ(cutShort("Short.", 20), "Short.");
    EXPECT_EQ(cutShort("One thing. Another thing altogether.", 20), "One thing.");
    EXPECT_EQ(cutShort("a, b, etc.; and more of them", 14), "a, b, etc.");
    EXPECT_EQ(cutShort("see {one; two} and three words more", 24), "see one; two and\u00A0…");
}

TEST(DevilArticle, ProseVerseAndSignatureAreToldApart) {
    const Article article = parseDevilArticle("ADMONITION, n.  Gentle reproof, as with a cannon-\nshot.\n\n"
                                              "    Consigned by way of admonition,\n        To perdition.\n"
                                              "                                                   Judibras\n");
    EXPECT_EQ(article.key, "ADMONITION");
    ASSERT_EQ(article.paragraphs.size(), 4U);
    EXPECT_EQ(told({article.paragraphs[0]}), "!*ADMONITION*^, /n./ Gentle reproof, as with a cannon-shot.");
    EXPECT_EQ(article.paragraphs[1].setting, Setting::Verse);
    EXPECT_TRUE(article.paragraphs[1].gapBefore);
    EXPECT_FALSE(article.paragraphs[2].gapBefore);
    EXPECT_EQ(article.paragraphs[3].setting, Setting::Right);
    EXPECT_EQ(parseDevilArticle("APRIL FOOL, n.  The March fool.\n").key, "APRIL FOOL");
    EXPECT_EQ(parseDevilArticle("X in our alphabet\n").key, "X");
    EXPECT_EQ(parseDevilArticle("preface of no article\n").key, "");
}

TEST(Element, OnlyWhatHasANumberIsOne) {
    const Article helium =
        parseElement("helium\nSymbol: He\nAtomic number: 2\nAtomic weight: 4.0026\nA gas of\n{group} 18.\n");
    EXPECT_EQ(helium.key, "002");
    EXPECT_EQ(helium.note, "Helium");
    EXPECT_EQ(told(helium.paragraphs),
              "!*2.*^* Helium*, !*He*^. /Atomic\u00A0weight/\u00A04.0026.|A gas of ^group^ 18.");
    EXPECT_EQ(parseElement("neutron\nWeight: 1.67\nA hadron.\n").key, "");
}

TEST(FreedictArticle, SensesFollowTheHeadword) {
    struct Row {
        const char* reason;
        const char* text;
        const char* expected;
    };
    const Row rows[] = {
        {"one sense", "bestia /bˈɛstɪa/\nanimal, beast\n", "*bestia* animal, beast."},
        {"word forms", "arx /ˈarks/ (arcis /ˈarkɪs/ <gen>) <n, sg, f>\nBurg\n", "*arx* (arcis /gen./) /n. f./ Burg."},
        {"numbered", "abzug\n1. afname\n2. hak\n", "*abzug* *1.\u00A0*afname *2.\u00A0*hak."},
        {"number alone on its line", "hisa <n>\n1.\npart\n", "*hisa* /n./ *1.\u00A0*part."},
        {"definition after translation", "Rom <n, neut>\nΡώμη 2.\ndie Stadt\n", "*Rom* /n. n./ Ρώμη — die Stadt."},
        {"class at the end", "hond\nHund <masc>\n", "*hond* Hund /m./"},
        {"no sense", "lonely\n", ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(told(parseFreedictArticle(row.text).paragraphs), row.expected) << row.reason;
}

TEST(JapaneseArticle, KeyIsTheReadingAndCharactersFollow) {
    const Article article = parseJapaneseArticle(
        " [ichi1]  [news1]  火星 /x/,  [news1] かせい /kasei/\n(noun (common) (futsuumeishi))\nMars\n");
    EXPECT_EQ(article.key, "かせい");
    EXPECT_EQ(told(article.paragraphs), "*かせい*【火星】/ n./ Mars.");
    EXPECT_EQ(parseJapaneseArticle("私淑 /x/, ししゅく /y/\n(pronoun)\nestimer\n").key, "") << "no common word";
    EXPECT_EQ(parseJapaneseArticle(" [ichi1] 漢 /x/\n(pronoun)\nx\n").key, "") << "no reading";
}

} // namespace
} // namespace velmarin
