// The keyboard wizard's search on a fuzzed dictionary and query, checked
// against the ranking rule written out plainly below: exact code or name
// matches first (the scan stops after 200 of them), then code matches by
// the position of the first match, then name or key matches, 200 at most,
// all case-insensitive. Every prefix of the query is searched in turn, as
// typing does, through the shared matcher and through the wizard itself
// (whose list must show the same codes in the same order).
//
// Input: the first line is the query; each further line is a record, its
// texts separated by tabs; a line "-" is a null pointer.

#include "fuzzcommon.h"
#include "datamodel.h"
#include "quickmacroitem.h"
#include "quickmacroview.h"
#include "uxkeyboradsprit.h"
#include "uxquickmacromatcher.h"

#include <QAbstractItemModel>

#include <cstdint>
#include <memory>
#include <vector>

namespace {

bool usable(const quickMacroItem* item)
{
    return item && item->texts.size() >= 4;
}

QVector<quickMacroItem*> reference(const QVector<quickMacroItem*>& dict, const QString& text)
{
    QVector<quickMacroItem*> result;
    if (text.isEmpty()) {
        for (quickMacroItem* item : dict) {
            if (usable(item))
                result.append(item);
        }
        return result;
    }
    int longest = 0;
    for (quickMacroItem* item : dict) {
        if (usable(item))
            longest = qMax(longest, item->texts.at(1).size());
    }
    QVector<quickMacroItem*> exact;
    QVector<quickMacroItem*> other;
    QVector<QVector<quickMacroItem*>> byPosition(longest);
    for (quickMacroItem* item : dict) {
        if (exact.size() >= 200)
            break;
        if (!usable(item))
            continue;
        const QStringList& t = item->texts;
        if (text.compare(t.at(1), Qt::CaseInsensitive) == 0 || text.compare(t.at(2), Qt::CaseInsensitive) == 0) {
            exact.append(item);
            continue;
        }
        const int p = t.at(1).indexOf(text, 0, Qt::CaseInsensitive);
        if (p >= 0)
            byPosition[p].append(item);
        else if (t.at(2).contains(text, Qt::CaseInsensitive) || t.at(3).contains(text, Qt::CaseInsensitive))
            other.append(item);
    }
    auto add = [&result](const QVector<quickMacroItem*>& list) {
        for (quickMacroItem* item : list) {
            if (result.size() >= 200)
                return;
            result.append(item);
        }
    };
    add(exact);
    for (const QVector<quickMacroItem*>& bucket : byPosition)
        add(bucket);
    add(other);
    return result;
}

QString describe(const QVector<quickMacroItem*>& hits)
{
    QStringList codes;
    for (const quickMacroItem* h : hits)
        codes << h->texts.at(1);
    return codes.join(QLatin1Char(','));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    UxFuzz::init(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QStringList lines = QString::fromUtf8(reinterpret_cast<const char*>(data), int(size)).split(QLatin1Char('\n'));
    const QString query = lines.value(0).left(12);
    std::vector<std::unique_ptr<quickMacroItem>> owned;
    QVector<quickMacroItem*> dict;
    for (int i = 1; i < lines.size() && i <= 600; ++i) {
        if (lines.at(i) == QLatin1String("-")) {
            dict.append(nullptr);
            continue;
        }
        owned.emplace_back(new quickMacroItem);
        owned.back()->texts = lines.at(i).split(QLatin1Char('\t'));
        dict.append(owned.back().get());
    }

    UxQuickMacroMatcher matcher;
    matcher.setDictionary(dict);
    UxKeyBoradSprit* wizard = UxKeyBoradSprit::initance();
    wizard->setDictData(dict);
    auto* view = wizard->findChild<QuickMacroView*>();
    UxFuzz::check(view, "the wizard has no list");

    for (int n = 0; n <= query.size(); ++n) {
        const QString text = query.left(n);
        const QVector<quickMacroItem*> expected = reference(dict, text);
        const QVector<quickMacroItem*> got = matcher.search(text);
        UxFuzz::check(got == expected, "matcher ranking",
                      text + QStringLiteral(": ") + describe(got) + QStringLiteral(" expected ") + describe(expected));

        if (text.isEmpty())
            continue;
        wizard->updateResult(text);
        const QAbstractItemModel* model = view->model();
        UxFuzz::check(model->rowCount() == expected.size(), "wizard row count", text);
        for (int r = 0; r < expected.size(); ++r) {
            UxFuzz::check(model->index(r, 1).data().toString() == expected.at(r)->texts.at(1), "wizard row",
                          text + QStringLiteral(" row ") + QString::number(r));
        }
    }
    // Records edited after the dictionary was set are searched as they are now.
    if (!owned.empty() && owned.front()->texts.size() >= 4 && !query.isEmpty()) {
        owned.front()->texts[1] = query;
        const QVector<quickMacroItem*> got = matcher.search(query);
        UxFuzz::check(got == reference(dict, query), "matcher after an edit", query);
    }
    wizard->setDictData({});
    return 0;
}
