#include "benchdata.h"

#include <QFile>
#include <QRandomGenerator>

#include <malloc.h>

namespace bench {

namespace {

struct Column
{
    const char* feild;
    const char* text;
    bool coloured;
};

const Column kColumns[] = {
    {"", "序号", false},          {"Code", "代码", false},        {"Name", "名称", false},
    {"Now", "最新", true},        {"ChangeRate", "涨幅", true},   {"Change", "涨跌", true},
    {"PreClose", "昨收", false},  {"Open", "今开", true},         {"High", "最高", true},
    {"Low", "最低", true},        {"Volume", "成交量", false},    {"Amount", "成交额", false},
    {"Turnover", "换手", false},  {"RedVolume", "外盘", true},    {"GreenVolume", "内盘", true},
    {"DifferRange5Min", "涨速", true}, {"PE", "市盈率", false},   {"TotalValue", "总市值", false},
    {"FlowValue", "流通市值", false}, {"Time", "时间", false},
};

QString price(double v)
{
    return QString::number(v, 'f', 2);
}

QString percent(double v)
{
    return QString::number(v, 'f', 2) + QLatin1Char('%');
}

// A volume or amount as the quote server writes it.
QString scaled(double v)
{
    if (v >= 1e8)
        return QString::number(v / 1e8, 'f', 2) + QString::fromUtf8("亿");
    if (v >= 1e4)
        return QString::number(v / 1e4, 'f', 2) + QString::fromUtf8("万");
    return QString::number(qint64(v));
}

// "Amount": 万, 亿, % and plain numbers mixed in one column.
QString mixedAmount(QRandomGenerator& rng)
{
    switch (rng.bounded(4)) {
    case 0:
        return QStringLiteral("%1.%2万").arg(rng.bounded(99999)).arg(rng.bounded(100), 2, 10, QLatin1Char('0'));
    case 1:
        return QStringLiteral("%1.%2亿").arg(rng.bounded(99)).arg(rng.bounded(100), 2, 10, QLatin1Char('0'));
    case 2:
        return QStringLiteral("%1.%2%").arg(rng.bounded(100)).arg(rng.bounded(100), 2, 10, QLatin1Char('0'));
    default:
        return rng.bounded(2) ? QString::number(rng.bounded(100000000))
                              : QString::number(rng.bounded(10000000) / 100.0, 'f', 2);
    }
}

const QStringList& fieldNames()
{
    // One shared string per field, as a client parsing one column file has.
    static const QStringList names = [] {
        QStringList l;
        for (const Column& c : kColumns)
            l << QString::fromLatin1(c.feild);
        return l;
    }();
    return names;
}

void fillMoving(_TableData& r, QRandomGenerator& rng, double preClose)
{
    const QStringList& f = fieldNames();
    const double now = qMax(0.01, preClose * (1.0 + (int(rng.bounded(2001)) - 1000) / 10000.0));
    r.riseFall = now > preClose ? 0 : (now < preClose ? 1 : 2);
    r.values.insert(f.at(3), price(now));
    r.values.insert(f.at(4), percent((now - preClose) / preClose * 100.0));
    r.values.insert(f.at(5), price(now - preClose));
    r.values.insert(f.at(10), scaled(rng.bounded(5000000000.0)));
    r.values.insert(f.at(11), mixedAmount(rng));
    r.values.insert(f.at(19), QStringLiteral("%1:%2:%3")
                                  .arg(9 + rng.bounded(6), 2, 10, QLatin1Char('0'))
                                  .arg(rng.bounded(60), 2, 10, QLatin1Char('0'))
                                  .arg(rng.bounded(60), 2, 10, QLatin1Char('0')));
}

struct Dictionary
{
    std::vector<std::unique_ptr<quickMacroItem>> owned;
    QVector<quickMacroItem*> items;
};

} // namespace

QList<_TableHHeaderData> quoteColumns()
{
    QList<_TableHHeaderData> list;
    for (const Column& c : kColumns) {
        _TableHHeaderData h;
        h.feild = QString::fromLatin1(c.feild);
        h.text = QString::fromUtf8(c.text);
        h.isChangeColor = c.coloured;
        h.riseColor = QColor(QStringLiteral("#e5323e"));
        h.fallColor = QColor(QStringLiteral("#14a05a"));
        h.riseBgColor = QColor(QStringLiteral("#ffe3e3"));
        h.fallBgColor = QColor(QStringLiteral("#ddf5e6"));
        h.alignment = Qt::AlignRight | Qt::AlignVCenter;
        list << h;
    }
    return list;
}

int columnOf(const QString& feild)
{
    return fieldNames().indexOf(feild);
}

const QString& sortFeild()
{
    static const QString f = QStringLiteral("Amount");
    return f;
}

QList<_TableData> quoteRows(int n)
{
    QRandomGenerator rng(42);
    const QStringList& f = fieldNames();
    const QString hanzi = QString::fromUtf8("浦发银行平安招商宁德时代中国石油工商建设农业交通保险证券科技电子医药");
    // Unique codes in a shuffled order.
    QVector<int> codes(n);
    for (int i = 0; i < n; ++i)
        codes[i] = i;
    for (int i = n - 1; i > 0; --i)
        std::swap(codes[i], codes[int(rng.bounded(i + 1))]);

    QList<_TableData> list;
    list.reserve(n);
    for (int i = 0; i < n; ++i) {
        _TableData r;
        r.key = QStringLiteral("hq");
        r.market = codes.at(i) % 2;
        r.code = QString::number(codes.at(i) + 100000).rightJustified(6, QLatin1Char('0'));
        for (int c = 0; c < 4; ++c)
            r.name += hanzi.at(int(rng.bounded(hanzi.size())));
        const double preClose = 1.0 + rng.bounded(30000) / 100.0;
        r.values.insert(f.at(6), price(preClose));
        r.values.insert(f.at(7), price(preClose * (1.0 + (int(rng.bounded(201)) - 100) / 10000.0)));
        r.values.insert(f.at(8), price(preClose * 1.05));
        r.values.insert(f.at(9), price(preClose * 0.96));
        r.values.insert(f.at(12), percent(rng.bounded(2000) / 100.0));
        r.values.insert(f.at(13), scaled(rng.bounded(2000000000.0)));
        r.values.insert(f.at(14), scaled(rng.bounded(2000000000.0)));
        r.values.insert(f.at(15), percent((int(rng.bounded(401)) - 200) / 100.0));
        r.values.insert(f.at(16), price(rng.bounded(10000) / 10.0));
        r.values.insert(f.at(17), scaled(1e8 + rng.bounded(1e12)));
        r.values.insert(f.at(18), scaled(1e8 + rng.bounded(5e11)));
        fillMoving(r, rng, preClose);
        list << r;
    }
    return list;
}

QList<_TableData> updateBurst(const QList<_TableData>& rows, int variant)
{
    QRandomGenerator rng(7 + quint32(variant));
    QList<_TableData> burst;
    burst.reserve(kUpdatesPerBurst);
    const QString preClose = QStringLiteral("PreClose");
    for (int i = 0; i < kUpdatesPerBurst; ++i) {
        _TableData u = rows.at(int(rng.bounded(rows.size())));
        if (i % 5 == 0)
            fillMoving(u, rng, u.values.value(preClose).toDouble() + 0.01 * variant);
        burst << u;
    }
    return burst;
}

QColor foregroundOf(const _TableHHeaderData& h, const _TableData& row)
{
    if (!h.isChangeColor)
        return QColor();
    const QString v = row.values.value(h.feild);
    if (v.isEmpty())
        return QColor();
    if (h.feild == QLatin1String("Open") || h.feild == QLatin1String("High") || h.feild == QLatin1String("Low")) {
        const double a = v.toDouble();
        const double p = row.values.value(QStringLiteral("PreClose")).toDouble();
        return a > p ? h.riseColor : (a < p ? h.fallColor : QColor());
    }
    if (h.feild == QLatin1String("DifferRange5Min") && v.startsWith(QLatin1Char('-')))
        return h.fallColor;
    return row.riseFall == 0 ? h.riseColor : (row.riseFall == 1 ? h.fallColor : QColor());
}

QString displayOf(const _TableHHeaderData& h, const _TableData& row, int rowNumber)
{
    if (h.feild.isEmpty())
        return QString::number(rowNumber + 1);
    if (h.feild == QLatin1String("Code"))
        return row.code;
    if (h.feild == QLatin1String("Name"))
        return row.name;
    const QString v = row.values.value(h.feild);
    return v.isEmpty() ? h.defaultValue : v;
}

const QVector<quickMacroItem*>& dictionary()
{
    static const Dictionary dict = [] {
        Dictionary d;
        QRandomGenerator rng(42);
        const QString hanzi = QString::fromUtf8("浦发银行平安招商宁德时代中国石油工商建设农业交通保险证券科技电子医药");
        const QString pinyin = QStringLiteral("pfyhpazsndsdzgsygsjsnyjtbxzqkjdzyy");
        const QString kinds[] = {QString::fromUtf8("沪A"), QString::fromUtf8("深A"), QString::fromUtf8("基金"),
                                 QString::fromUtf8("债券"), QString::fromUtf8("指数")};
        const char* prefixes[] = {"600", "601", "603", "000", "002", "300", "688", "510", "159", "113", "399"};
        for (int i = 0; i < kDictSize; ++i) {
            const int kind = int(rng.bounded(5));
            QString code = QString::fromLatin1(prefixes[rng.bounded(11)])
                + QString::number(rng.bounded(1000)).rightJustified(3, QLatin1Char('0'));
            QString name;
            QString key;
            const int len = 2 + int(rng.bounded(3));
            for (int c = 0; c < len; ++c) {
                const int k = int(rng.bounded(hanzi.size()));
                name += hanzi.at(k);
                key += pinyin.at(k);
            }
            if (i == kDictSize / 2) {
                code = typedCode();
                name = QString::fromUtf8("贵州茅台");
                key = QStringLiteral("gzmt");
            }
            d.owned.emplace_back(new quickMacroItem{{kinds[kind], code, name, key},
                                                    QStringLiteral("view://stock?code=") + code});
            d.items.append(d.owned.back().get());
        }
        return d;
    }();
    return dict.items;
}

const QString& typedCode()
{
    static const QString code = QStringLiteral("600519");
    return code;
}

const QString& pinyinQuery()
{
    static const QString q = QStringLiteral("pf");
    return q;
}

qint64 heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks);
}

QString quoteTableSheet()
{
    QFile f(QStringLiteral(UX_SOURCE_DIR "/skins/light/quote/customtable.css"));
    if (!f.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(f.readAll());
}

} // namespace bench
