// Sets blocks one under the other and breaks them into pages.

#include "Fiscarel_SG/paper/PaperStrip.h"

#include <algorithm>
#include <utility>

namespace fiscarel::paper {

using namespace Qt::Literals::StringLiterals;
using namespace outputs;

namespace {

constexpr double chapterSpace = 34; ///< above a chapter in the midst of a page
constexpr double sectionSpace = 20;
constexpr double partSpace = 12;
constexpr double textSpace = 5;
constexpr double underTitle = 6;
constexpr double runningTop = 40;
constexpr double runningBottom = pageHeight - 36;
constexpr double figureGap = 18;
constexpr std::size_t mostIntroducing = 4; ///< lines of text that stay with a table after them
constexpr double measure = 400;            ///< running text is not wider, points

void append(std::vector<Strip>& strips, const ReportHeading& heading, bool beginsPage) {
    const Type type = heading.level == 1   ? Type::title
                      : heading.level == 2 ? Type::section
                                           : Type::part;
    const QString text = paperText(heading.text);
    Strip strip{.spaceBefore = heading.level == 1   ? chapterSpace
                               : heading.level == 2 ? sectionSpace
                                                    : partSpace,
                .staysWithNext = true,
                .kind = PaperBlock::Kind::heading,
                .anchor = heading.anchor,
                .outlineTitle = text,
                .outlineLevel = heading.level,
                .beginsPage = beginsPage};
    addLines(strip, type, wrapped(type, text, contentWidth), 0);
    strip.height += heading.level == 1 ? underTitle : 0;
    strips.push_back(std::move(strip));
}

Type typeOf(ReportText::Tone tone) {
    using Tone = ReportText::Tone;
    switch (tone) {
    case Tone::faint:
        return Type::note;
    case Tone::kicker:
        return Type::kicker;
    case Tone::display:
        return Type::display;
    case Tone::lead:
        return Type::lead;
    case Tone::body:
        break;
    }
    return Type::body;
}

/// A paragraph; long ones are broken between lines, but never after the first or before the last.
void append(std::vector<Strip>& strips, const ReportText& text) {
    const Type type = typeOf(text.tone);
    const bool isRunning =
        text.tone == ReportText::Tone::body || text.tone == ReportText::Tone::faint;
    const QStringList lines =
        wrapped(type, paperText(text.text), isRunning ? measure : contentWidth);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        Strip strip{.spaceBefore = i == 0 ? textSpace : 0,
                    .staysWithNext = i + 1 < lines.size() && (i == 0 || i + 2 == lines.size())};
        addLines(strip, type, {lines[i]}, 0);
        strips.push_back(std::move(strip));
    }
}

/// The first figure stands large in a line of its own, the others side by side under it.
void append(std::vector<Strip>& strips, const ReportFigures& figures) {
    Strip strip{.kind = PaperBlock::Kind::figures};
    double left = 0;
    double top = 0;
    for (const auto& figure : figures.figures) {
        const bool isFirst = &figure == &figures.figures.front();
        const Type type = isFirst ? Type::largeFigure : Type::figure;
        const QString label = paperText(figure.label);
        const QString value = paperText(figure.value);
        const double width =
            std::max(widthOf(Type::figureLabel, label), widthOf(type, value)) + figureGap;
        if (left > 0 && left + width > contentWidth) {
            left = 0;
            top = strip.height + underTitle;
        }
        addLines(strip, Type::figureLabel, {label}, top, left);
        addLines(strip, type, {value}, top + leading(Type::figureLabel), left);
        if (!figure.code.empty()) {
            strip.spots.push_back(
                {QRectF(left, top, width - figureGap, leading(Type::figureLabel) + leading(type)),
                 figure.code, label + u' ' + value});
        }
        left = isFirst ? 0 : left + width;
        top = isFirst ? strip.height + underTitle : top;
    }
    strip.rules.push_back(
        {QRectF(0, -underTitle - 1.2, contentWidth, 1.2), PaperRule::Ink::accent});
    strips.push_back(std::move(strip));
}

void append(std::vector<Strip>& strips, const ReportTable& table) {
    std::ranges::move(tableStrips(table), std::back_inserter(strips));
}

/// Every block one after the other; space before the next block is carried over.
std::vector<Strip> stripsOf(const ReportChapter& chapter) {
    std::vector<Strip> strips;
    double space = 0;
    bool isFirst = true;
    for (const ReportBlock& block : chapter.blocks) {
        const std::size_t before = strips.size();
        const bool beginsPage = isFirst && chapter.beginsOnNewPage;
        std::visit(
            [&](const auto& one) {
                using Block = std::decay_t<decltype(one)>;
                if constexpr (std::is_same_v<Block, ReportSpace>) {
                    space += one.points;
                } else if constexpr (std::is_same_v<Block, ReportHeading>) {
                    append(strips, one, beginsPage);
                } else {
                    append(strips, one);
                }
            },
            block);
        if (std::holds_alternative<ReportTable>(block)) { // short texts introduce it
            for (std::size_t i = before, lines = 0;
                 i > 0 && lines < mostIntroducing && strips[i - 1].kind == PaperBlock::Kind::text;
                 --i, ++lines) {
                strips[i - 1].staysWithNext = true;
            }
        }
        if (strips.size() > before) {
            strips[before].spaceBefore += space;
            space = 0;
            isFirst = false;
        }
    }
    return strips;
}

/// Fills pages with strips.
class Flow {
  public:
    explicit Flow(PaperDocument& document) : document_(document) {}

    void newPage(bool isCover) {
        document_.pages.emplace_back();
        y_ = isCover ? marginTop / 2 : marginTop;
        isEmpty_ = true;
    }
    /// `strips` without those of other chapters; the first may begin a page.
    void place(const std::vector<Strip>& strips, bool isCover) {
        for (std::size_t i = 0; i < strips.size(); ++i) {
            const Strip& strip = strips[i];
            const double space = isEmpty_ && !isCover ? 0 : strip.spaceBefore;
            const bool isFull = y_ + space + heightTogether(strips, i) > bottom();
            if (document_.pages.empty() || ((isFull || strip.beginsPage) && !isEmpty_)) {
                newPage(isCover && document_.pages.empty());
                if (strip.headBefore > 0) {
                    put(strips[i - strip.headBefore], true);
                }
                if (strip.groupBefore > 0) {
                    put(continued(strips[i - strip.groupBefore]), true);
                }
            }
            y_ += isEmpty_ && !isCover ? 0 : strip.spaceBefore;
            put(strip, false);
        }
    }

  private:
    static double bottom() { return pageHeight - marginBottom; }

    /// The height of a strip with those that must stand on the same page.
    static double heightTogether(const std::vector<Strip>& strips, std::size_t at) {
        const double alone = strips[at].height;
        double height = alone;
        for (; strips[at].staysWithNext && at + 1 < strips.size(); ++at) {
            height += strips[at + 1].spaceBefore + strips[at + 1].height;
        }
        return height <= contentHeight ? height : alone;
    }

    /// The first row of a group, as it stands again where the group goes on.
    static Strip continued(Strip strip) {
        if (!strip.texts.empty()) {
            PaperText& first = strip.texts.front();
            const QString longer = first.text + u" (Fortsetzung)"_s;
            const double right = first.at.x() + widthOf(first.type, longer);
            const bool hasRoom = std::ranges::none_of(strip.texts, [&](const PaperText& other) {
                return other.at.x() > first.at.x() && other.at.x() < right;
            });
            first.text = hasRoom ? longer : first.text;
        }
        strip.spots.clear();
        return strip;
    }

    void put(const Strip& strip, bool isRepeated) {
        PaperPage& page = document_.pages.back();
        const QPointF corner(marginLeft, y_);
        for (PaperText text : strip.texts) {
            text.at += corner;
            page.texts.push_back(std::move(text));
        }
        for (PaperRule rule : strip.rules) {
            rule.rect.translate(corner);
            page.rules.push_back(rule);
        }
        for (PaperSpot spot : strip.spots) {
            spot.rect.translate(corner);
            page.spots.push_back(std::move(spot));
        }
        const QRectF whole(corner, QSizeF(contentWidth, strip.height));
        if (!strip.link.empty()) {
            page.links.push_back({whole, strip.link});
        }
        page.blocks.push_back({whole, strip.kind});
        if (!isRepeated) {
            const PaperPlace place{static_cast<int>(document_.pages.size()) - 1, y_};
            if (!strip.anchor.empty()) {
                document_.places.emplace(strip.anchor, place);
            }
            if (strip.outlineLevel > 0) {
                document_.outline.push_back({strip.outlineTitle, strip.outlineLevel, place});
            }
        }
        y_ += strip.height;
        isEmpty_ = false;
    }

    PaperDocument& document_;
    double y_ = 0;
    bool isEmpty_ = true; ///< nothing stands on the page yet
};

/// Puts the page numbers where they are asked for.
void numberPages(PaperDocument& document) {
    for (PaperPage& page : document.pages) {
        for (PaperText& text : page.texts) {
            if (text.pageOf.empty()) {
                continue;
            }
            const auto found = document.places.find(text.pageOf);
            text.text = found == document.places.end() ? QString()
                                                       : QString::number(found->second.page + 1);
            text.at.rx() -= widthOf(text.type, text.text);
        }
        std::erase_if(page.links, [&](const PaperLink& link) {
            return !document.places.contains(link.target);
        });
    }
}

/// Head and foot of the pages after the cover.
void addRunningTexts(PaperDocument& document, const ReportContent& content) {
    const auto fitted = [](const QString& text) {
        const QStringList lines = wrapped(Type::running, text, contentWidth * 0.7);
        return lines.size() > 1 ? lines.front() + u" …"_s : text;
    };
    const QString head = fitted(paperText(content.pageHead));
    const QString foot = fitted(paperText(content.pageFoot));
    const bool hasCover = !content.chapters.empty() && content.chapters.front().isCover;
    for (std::size_t i = hasCover ? 1 : 0; i < document.pages.size(); ++i) {
        const QString number = u"Seite %1 von %2"_s.arg(i + 1).arg(document.pages.size());
        auto& texts = document.pages[i].texts;
        texts.push_back({QPointF(marginLeft, runningTop), head, Type::running});
        texts.push_back({QPointF(marginLeft, runningBottom), foot, Type::running});
        texts.push_back(
            {QPointF(pageWidth - marginRight - widthOf(Type::running, number), runningBottom),
             number, Type::running});
    }
}

} // namespace

PaperDocument setOnPaper(const ReportContent& content) {
    PaperDocument document{.title = paperText(content.title)};
    Flow flow(document);
    for (const ReportChapter& chapter : content.chapters) {
        if (chapter.isCover) {
            flow.newPage(true);
            document.outline.push_back({paperText(chapter.title), 1, {}});
        }
        flow.place(stripsOf(chapter), chapter.isCover);
    }
    numberPages(document);
    addRunningTexts(document, content);
    return document;
}

} // namespace fiscarel::paper
