#include "gui/main/sources_model.h"

#include "qt/in_words.h"
#include "qt/named_widget.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(sources)
};

const QString nothing = QStringLiteral("–");

struct Heading {
    const char* title;
    const char* tip;
};

constexpr std::array<Heading, SourcesModel::column_count> headings{{
    //: table of sources: heading of a column
    {QT_TRANSLATE_NOOP("sources", "State"),
     //: table of sources: tooltip of that heading
     QT_TRANSLATE_NOOP("sources", "Whether chronyd uses the source, and if not, why")},
    //: table of sources: heading of a column
    {QT_TRANSLATE_NOOP("sources", "Name"),
     //: table of sources: tooltip of that heading
     QT_TRANSLATE_NOOP("sources", "As the configuration has it")},
    //: table of sources: heading of a column
    {QT_TRANSLATE_NOOP("sources", "Address"),
     //: table of sources: tooltip of that heading
     QT_TRANSLATE_NOOP("sources", "Its address, or the ID of a reference clock")},
    //: table of sources: heading of a narrow column
    {QT_TRANSLATE_NOOP("sources", "Stratum"),
     //: table of sources: tooltip of that heading
     QT_TRANSLATE_NOOP("sources", "How many steps it is away from a reference clock")},
    //: table of sources: heading of a narrow column
    {QT_TRANSLATE_NOOP("sources", "Poll"),
     //: table of sources: tooltip of that heading
     QT_TRANSLATE_NOOP("sources", "The time between two measurements")},
    //: table of sources: heading of a column
    {QT_TRANSLATE_NOOP("sources", "Reach"),
     //: table of sources: tooltip of that heading
     QT_TRANSLATE_NOOP("sources", "The last eight polls, the newest at the right: a full dot was answered")},
    //: table of sources: heading of a column
    {QT_TRANSLATE_NOOP("sources", "Offset"),
     //: table of sources: tooltip of that heading
     QT_TRANSLATE_NOOP("sources", "How far our clock is ahead of the source, and how far that may be wrong")},
    //: table of sources: heading of a column
    {QT_TRANSLATE_NOOP("sources", "Last heard"),
     //: table of sources: tooltip of that heading
     QT_TRANSLATE_NOOP("sources", "How long ago its newest measurement was")},
}};

double number_in(const JudgedSource& source, int column) {
    constexpr double last = std::numeric_limits<double>::max(); // what is not there comes behind what is
    switch (column) {
    case SourcesModel::stratum:
        return source.data.stratum;
    case SourcesModel::poll:
        return source.data.poll;
    case SourcesModel::reach:
        return source.data.reach;
    case SourcesModel::offset:
        return source.data.offset.value_or(last);
    case SourcesModel::last_heard:
        return source.data.last_rx.value_or(last);
    default:
        return static_cast<double>(standing_of(source.rule));
    }
}

const std::string& text_key(const JudgedSource& source, int column) {
    return column == SourcesModel::name && source.name ? *source.name : source.data.source;
}

bool comes_before(const JudgedSource& one, const JudgedSource& other, int column) {
    if (column == SourcesModel::name || column == SourcesModel::address)
        return text_key(one, column) < text_key(other, column);
    return number_in(one, column) < number_in(other, column);
}

QString offset_words(const SourceData& data) {
    if (!data.offset)
        return nothing;
    const QString offset = in_words(quantity::signed_seconds(*data.offset));
    return data.error ? offset + QStringLiteral(" ± ") + in_words(quantity::seconds(*data.error)) : offset;
}

// As a screen reader says it: dots have no number.
QString reach_words(unsigned reach) {
    //: table of sources, for screen readers: %1 of the last eight polls were answered
    return Texts::tr("%1 of the last 8 answered").arg(std::popcount(reach & 0xFFU));
}

bool is_number(int column) {
    return column == SourcesModel::stratum || column == SourcesModel::poll || column == SourcesModel::offset ||
           column == SourcesModel::last_heard;
}

} // namespace

SourcesModel::SourcesModel(QObject* parent, const QPalette& palette) : QAbstractTableModel(parent), m_marks(palette) {}

SourcesModel::Order SourcesModel::sorted(const ClockTruth& truth) const {
    Order order(truth.sources.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    if (m_column >= 0)
        std::ranges::stable_sort(order, [&](std::size_t one, std::size_t other) {
            if (m_direction == Qt::DescendingOrder)
                std::swap(one, other);
            return comes_before(truth.sources[one], truth.sources[other], m_column);
        });
    return order;
}

void SourcesModel::show(std::shared_ptr<const ClockTruth> truth) {
    Order order = sorted(*truth);
    const auto same_source = [&](std::size_t before, std::size_t now) {
        return m_truth->sources[before].data.source == truth->sources[now].data.source;
    };
    if (std::ranges::equal(m_order, order, same_source)) {
        m_order = std::move(order);
        m_truth = std::move(truth);
        if (!m_order.empty())
            Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, column_count - 1));
    } else {
        rearrange(std::move(order), std::move(truth));
    }
}

// The rows of those that stay go with them; a view keeps what is selected.
void SourcesModel::rearrange(Order order, std::shared_ptr<const ClockTruth> truth) {
    const auto same = [](const JudgedSource& one, const JudgedSource& other) {
        return one.data.source == other.data.source;
    };
    if (!std::ranges::equal(m_truth->sources, truth->sources, same)) {
        beginResetModel();
        m_order = std::move(order);
        m_truth = std::move(truth);
        endResetModel();
        return;
    }
    Q_EMIT layoutAboutToBeChanged();
    std::vector<int> rows(order.size()); // by source
    for (std::size_t row = 0; row < order.size(); ++row)
        rows[order[row]] = static_cast<int>(row);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& one : before)
        after.append(index(rows[source_in(one.row())], one.column()));
    m_order = std::move(order);
    m_truth = std::move(truth);
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

void SourcesModel::sort(int column, Qt::SortOrder order) {
    m_column = column;
    m_direction = order;
    rearrange(sorted(*m_truth), m_truth);
}

void SourcesModel::set_palette(const QPalette& palette) {
    m_marks = StandingMarks(palette);
}

int SourcesModel::row_of(const std::string& wanted) const {
    const auto found = std::ranges::find_if(
        m_order, [&](std::size_t source) { return m_truth->sources[source].data.source == wanted; });
    return found == m_order.end() ? -1 : static_cast<int>(found - m_order.begin());
}

int SourcesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_order.size());
}

int SourcesModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : column_count;
}

QString SourcesModel::text_in(const JudgedSource& source, int column) const {
    const SourceData& data = source.data;
    switch (column) {
    case state:
        return words_of(source.rule);
    case name:
        return source.name ? from_std(*source.name) : nothing;
    case address:
        return data.source.starts_with("ID#") ? nothing : from_std(data.source);
    case stratum:
        return data.stratum > 0 ? QString::number(data.stratum) : nothing;
    case poll:
        return poll_words(data.poll);
    case reach:
        return reach_dots(data.reach);
    case offset:
        return offset_words(data);
    default:
        return data.last_rx ? in_words(quantity::duration(*data.last_rx)) : nothing;
    }
}

QVariant SourcesModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const JudgedSource& source = m_truth->sources[source_in(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return text_in(source, index.column());
    case Qt::DecorationRole:
        return index.column() == state ? QVariant(m_marks.of(standing_of(source.rule))) : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignVCenter | (is_number(index.column()) ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::AccessibleTextRole:
        return index.column() == reach ? QVariant(reach_words(source.data.reach)) : QVariant();
    case Qt::ToolTipRole:
        return index.column() == reach ? reach_words(source.data.reach) : text_in(source, index.column());
    default:
        return {};
    }
}

QVariant SourcesModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= column_count)
        return {};
    const Heading& heading = headings[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole)
        return QCoreApplication::translate("sources", heading.title);
    if (role == Qt::ToolTipRole)
        return QCoreApplication::translate("sources", heading.tip);
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignVCenter | (is_number(section) ? Qt::AlignRight : Qt::AlignLeft));
    return {};
}

} // namespace tickervantage
