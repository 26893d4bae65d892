#include "ui/cardview.h"

#include "devices/cardimages.h"
#include "ui/shown.h"

#include <QAbstractListModel>
#include <QFontDatabase>
#include <QHash>
#include <QLabel>
#include <QListView>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace quorvane {

class CardRows : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    void Reset(std::int32_t bytes) {
        beginResetModel();
        read.clear();
        count = (bytes + MemCardRowBytes - 1) / MemCardRowBytes;
        endResetModel();
    }

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : count; }

    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
        auto row = read.find(index.row());
        if (row == read.end())
            row = read.insert(index.row(), Shown(ReadMemCardRow(index.row() * MemCardRowBytes)));
        return *row;
    }

private:
    int count = 0;
    mutable QHash<int, QString> read;
};

namespace {

constexpr int Margin = 6; // pixels beside the text

// Puts the parts of a row below the digits of the head, which do not stand at equal distances.
class RowPainter : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        return {0, option.fontMetrics.height() + 2};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, {});
        const bool chosen = option.state & QStyle::State_Selected;
        const QPalette& colours = option.palette;
        const QString text = index.data().toString();
        painter->save();
        painter->setFont(option.font);
        painter->setPen(colours.color(chosen ? QPalette::HighlightedText : QPalette::Text));
        Put(painter, option, 0, text.left(AddressWidth));
        for (int byte = 0; AddressWidth + byte * ByteWidth < text.size(); ++byte)
            Put(painter, option, ColumnOf(byte), text.mid(AddressWidth + byte * ByteWidth, ByteWidth));
        painter->restore();
    }

private:
    static constexpr int AddressWidth = 10; // characters, "Adr" and seven
    static constexpr int ByteWidth = 5;     // " :" and three

    // The last of three figures stands below the digit.
    static int ColumnOf(int byte) {
        constexpr std::string_view head = MemCardHeader;
        return static_cast<int>(head.find(static_cast<char>('0' + byte))) - 4;
    }

    static void Put(QPainter* painter, const QStyleOptionViewItem& option, int column, const QString& part) {
        const int x =
            option.rect.left() + Margin + option.fontMetrics.horizontalAdvance(QString(column, ' '));
        const QRect place(x, option.rect.top(), option.rect.width(), option.rect.height());
        painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, part);
    }
};

} // namespace

CardView::CardView() : lblKopf(new QLabel(MemCardHeader)), lstKarte(new QListView), rows(new CardRows(this)) {
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    lblKopf->setObjectName("lblKopf");
    lblKopf->setAccessibleName("Spalten der Bytes");
    lblKopf->setTextFormat(Qt::PlainText);
    lblKopf->setFont(fixed);
    lblKopf->setIndent(lstKarte->frameWidth() + Margin);
    lstKarte->setObjectName("lstKarte");
    lstKarte->setAccessibleName("Inhalt der Memorykarte");
    lstKarte->setFont(fixed);
    lstKarte->setUniformItemSizes(true);
    lstKarte->setItemDelegate(new RowPainter(lstKarte));
    lstKarte->setModel(rows);
    lstKarte->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstKarte->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    lstKarte->setMinimumHeight(6 * lstKarte->fontMetrics().height());
    lstKarte->setMinimumWidth(lstKarte->fontMetrics().horizontalAdvance(MemCardHeader) +
                              2 * (lstKarte->frameWidth() + Margin) +
                              lstKarte->verticalScrollBar()->sizeHint().width()); // a whole row

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->addWidget(lblKopf);
    layout->addWidget(lstKarte, 1);
}

void CardView::ShowCard(std::int32_t bytes) { rows->Reset(bytes); }

void CardView::GoTo(std::int32_t address) {
    const QModelIndex row = rows->index(address / MemCardRowBytes);
    lstKarte->setCurrentIndex(row);
    lstKarte->scrollTo(row, QAbstractItemView::PositionAtCenter);
}

} // namespace quorvane
