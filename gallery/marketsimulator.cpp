#include "marketsimulator.h"

#include <QStringList>

#include <algorithm>
#include <iterator>
#include <cmath>

namespace {

struct Syllable
{
    const char* hanzi;
    char initial;
};

// Name parts with their pinyin initials: a prefix pair and an industry pair.
const Syllable kPrefix[] = {
    {"中", 'Z'}, {"国", 'G'}, {"华", 'H'}, {"海", 'H'}, {"东", 'D'}, {"方", 'F'}, {"南", 'N'}, {"北", 'B'},
    {"金", 'J'}, {"长", 'C'}, {"江", 'J'}, {"黄", 'H'}, {"山", 'S'}, {"云", 'Y'}, {"星", 'X'}, {"明", 'M'},
    {"德", 'D'}, {"福", 'F'}, {"瑞", 'R'}, {"康", 'K'}, {"宁", 'N'}, {"祥", 'X'}, {"佳", 'J'}, {"诚", 'C'},
    {"安", 'A'}, {"泰", 'T'}, {"和", 'H'}, {"平", 'P'}, {"兴", 'X'}, {"盛", 'S'}, {"隆", 'L'}, {"宏", 'H'},
};
const Syllable kIndustry[][2] = {
    {{"科", 'K'}, {"技", 'J'}}, {{"银", 'Y'}, {"行", 'H'}}, {{"电", 'D'}, {"力", 'L'}}, {{"能", 'N'}, {"源", 'Y'}},
    {{"医", 'Y'}, {"药", 'Y'}}, {{"汽", 'Q'}, {"车", 'C'}}, {{"证", 'Z'}, {"券", 'Q'}}, {{"光", 'G'}, {"伏", 'F'}},
    {{"通", 'T'}, {"信", 'X'}}, {{"航", 'H'}, {"天", 'T'}}, {{"建", 'J'}, {"设", 'S'}}, {{"材", 'C'}, {"料", 'L'}},
    {{"化", 'H'}, {"工", 'G'}}, {{"食", 'S'}, {"品", 'P'}}, {{"酒", 'J'}, {"业", 'Y'}}, {{"钢", 'G'}, {"铁", 'T'}},
    {{"港", 'G'}, {"口", 'K'}}, {{"网", 'W'}, {"络", 'L'}}, {{"智", 'Z'}, {"能", 'N'}}, {{"地", 'D'}, {"产", 'C'}},
};

QString price(double v)
{
    return QString::number(v, 'f', 2);
}

QString signedNumber(double v, int decimals)
{
    const QString s = QString::number(v, 'f', decimals);
    return v > 0 ? QLatin1Char('+') + s : s;
}

} // namespace

MarketSimulator::MarketSimulator(int count, quint32 seed, QObject* parent)
    : QObject(parent)
    , m_rng(seed)
{
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const int prefixes = int(std::size(kPrefix));
    const int industries = int(std::size(kIndustry));
    m_instruments.reserve(count);
    for (int i = 0; i < count; ++i) {
        Instrument in;
        // A third each: Shanghai main board, Shenzhen main board, ChiNext.
        switch (i % 3) {
        case 0: in.code = QString::number(600000 + i / 3 * 7 % 4000); in.market = 1; break;
        case 1: in.code = QStringLiteral("%1").arg(1 + i / 3 * 3 % 3000, 6, 10, QLatin1Char('0')); break;
        default: in.code = QString::number(300001 + i / 3 * 5 % 1000); break;
        }
        const Syllable& a = kPrefix[(i * 7) % prefixes];
        const Syllable& b = kPrefix[(i * 13 + 5) % prefixes];
        const Syllable* ind = kIndustry[(i * 3 + i / prefixes) % industries];
        in.name = QString::fromUtf8(a.hanzi) + QString::fromUtf8(b.hanzi) + QString::fromUtf8(ind[0].hanzi)
            + QString::fromUtf8(ind[1].hanzi);
        in.pinyin = QString(QLatin1Char(a.initial)) + QLatin1Char(b.initial) + QLatin1Char(ind[0].initial)
            + QLatin1Char(ind[1].initial);
        in.preClose = std::round((2.0 + 98.0 * unit(m_rng) * unit(m_rng)) * 100.0) / 100.0;
        in.open = std::round(in.preClose * (1.0 + (unit(m_rng) - 0.5) * 0.04) * 100.0) / 100.0;
        in.now = in.open;
        in.high = std::max(in.open, in.preClose);
        in.low = std::min(in.open, in.preClose);
        in.volume = std::floor(5000.0 + 2.0e6 * std::pow(unit(m_rng), 4.0));
        in.amount = in.volume * 100.0 * in.now;
        in.red = std::floor(in.volume * (0.3 + 0.4 * unit(m_rng)));
        in.diff5 = (unit(m_rng) - 0.5) * 2.0;
        in.turnover = 10.0 * unit(m_rng) * unit(m_rng);
        in.time = QTime(9, 30).addSecs(int(unit(m_rng) * 3600));
        in.suspended = i % 97 == 41;
        m_instruments.append(in);
    }
    m_order.resize(count);
    for (int i = 0; i < count; ++i)
        m_order[i] = i;
}

QString MarketSimulator::formatUnits(double value)
{
    if (std::fabs(value) >= 1.0e8)
        return QString::number(value / 1.0e8, 'f', 2) + QStringLiteral("亿");
    // Keep a decimal point: the table only reads units after a decimal number.
    if (std::fabs(value) >= 1.0e7)
        return QString::number(value / 1.0e4, 'f', 1) + QStringLiteral("万");
    if (std::fabs(value) >= 1.0e4)
        return QString::number(value / 1.0e4, 'f', 2) + QStringLiteral("万");
    return QString::number(value, 'f', 0);
}

_TableData MarketSimulator::row(int instrumentIndex) const
{
    const Instrument& in = m_instruments.at(instrumentIndex);
    _TableData r;
    r.key = in.code;
    r.code = in.code;
    r.name = in.name;
    r.market = in.market;
    if (in.suspended) {
        r.riseFall = 2;
        r.values.insert(QStringLiteral("PreClose"), price(in.preClose));
        return r;
    }
    r.riseFall = in.now > in.preClose ? 0 : (in.now < in.preClose ? 1 : 2);
    const double change = in.now - in.preClose;
    r.values.insert(QStringLiteral("Now"), price(in.now));
    r.values.insert(QStringLiteral("Change"), signedNumber(change, 2));
    r.values.insert(QStringLiteral("ChangeRate"), signedNumber(change / in.preClose * 100.0, 2) + QLatin1Char('%'));
    r.values.insert(QStringLiteral("Open"), price(in.open));
    r.values.insert(QStringLiteral("High"), price(in.high));
    r.values.insert(QStringLiteral("Low"), price(in.low));
    r.values.insert(QStringLiteral("PreClose"), price(in.preClose));
    r.values.insert(QStringLiteral("Volume"), formatUnits(in.volume));
    r.values.insert(QStringLiteral("Amount"), formatUnits(in.amount));
    r.values.insert(QStringLiteral("RedVolume"), QString::number(in.red, 'f', 0));
    r.values.insert(QStringLiteral("GreenVolume"), QString::number(in.volume - in.red, 'f', 0));
    r.values.insert(QStringLiteral("DifferRange5Min"), QString::number(in.diff5, 'f', 2));
    r.values.insert(QStringLiteral("TurnoverRate"), QString::number(in.turnover, 'f', 2) + QLatin1Char('%'));
    r.values.insert(QStringLiteral("Time"), in.time.toString(Qt::ISODate));
    return r;
}

QList<_TableData> MarketSimulator::identityRows() const
{
    QList<_TableData> list;
    list.reserve(m_order.size());
    for (int index : m_order) {
        const Instrument& in = m_instruments.at(index);
        _TableData r;
        r.key = in.code;
        r.code = in.code;
        r.name = in.name;
        r.market = in.market;
        list.append(r);
    }
    return list;
}

QList<_TableData> MarketSimulator::rows(int start, int count) const
{
    QList<_TableData> list;
    const int first = std::max(0, start);
    const int last = std::min(int(m_order.size()), start + std::max(0, count));
    for (int i = first; i < last; ++i)
        list.append(row(m_order.at(i)));
    return list;
}

double MarketSimulator::sortValue(const Instrument& in, const QString& feild) const
{
    if (in.suspended && feild != QLatin1String("PreClose") && feild != QLatin1String("Code"))
        return -1.0e18;
    if (feild == QLatin1String("Now"))
        return in.now;
    if (feild == QLatin1String("Change"))
        return in.now - in.preClose;
    if (feild == QLatin1String("ChangeRate"))
        return (in.now - in.preClose) / in.preClose;
    if (feild == QLatin1String("Open"))
        return in.open;
    if (feild == QLatin1String("High"))
        return in.high;
    if (feild == QLatin1String("Low"))
        return in.low;
    if (feild == QLatin1String("PreClose"))
        return in.preClose;
    if (feild == QLatin1String("Volume"))
        return in.volume;
    if (feild == QLatin1String("Amount"))
        return in.amount;
    if (feild == QLatin1String("RedVolume"))
        return in.red;
    if (feild == QLatin1String("GreenVolume"))
        return in.volume - in.red;
    if (feild == QLatin1String("DifferRange5Min"))
        return in.diff5;
    if (feild == QLatin1String("TurnoverRate"))
        return in.turnover;
    if (feild == QLatin1String("Time"))
        return in.time.msecsSinceStartOfDay();
    return in.code.toDouble();
}

void MarketSimulator::sortBy(const QString& feild, int mode)
{
    if (mode != 1 && mode != 2)
        return;
    QVector<double> keys(m_instruments.size());
    for (int i = 0; i < m_instruments.size(); ++i)
        keys[i] = sortValue(m_instruments.at(i), feild);
    std::stable_sort(m_order.begin(), m_order.end(), [&](int a, int b) {
        return mode == 1 ? keys[a] < keys[b] : keys[a] > keys[b];
    });
}

QList<_TableData> MarketSimulator::tick(int start, int count, int changes)
{
    QList<_TableData> updated;
    const int first = std::max(0, start);
    const int last = std::min(int(m_order.size()), start + std::max(0, count));
    if (first >= last)
        return updated;
    std::uniform_int_distribution<int> pick(first, last - 1);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    for (int n = 0; n < changes; ++n) {
        const int index = m_order.at(pick(m_rng));
        Instrument& in = m_instruments[index];
        if (in.suspended)
            continue;
        // A small random walk kept inside the daily ±10% limit.
        const double step = std::round((unit(m_rng) - 0.5) * in.preClose * 0.004 * 100.0) / 100.0;
        in.now = std::clamp(in.now + (step == 0.0 ? 0.01 : step), in.preClose * 0.9, in.preClose * 1.1);
        in.now = std::round(in.now * 100.0) / 100.0;
        in.high = std::max(in.high, in.now);
        in.low = std::min(in.low, in.now);
        const double lots = std::floor(1.0 + 500.0 * unit(m_rng));
        in.volume += lots;
        in.amount += lots * 100.0 * in.now;
        if (step > 0)
            in.red += lots;
        in.diff5 = std::clamp(in.diff5 + (unit(m_rng) - 0.5) * 0.2, -5.0, 5.0);
        in.time = in.time.addSecs(3);
        updated.append(row(index));
    }
    return updated;
}
