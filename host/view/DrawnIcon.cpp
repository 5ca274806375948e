#include "DrawnIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace host {

namespace {

class DrawnIconEngine : public QIconEngine
{
public:
    explicit DrawnIconEngine(const QPainterPath& shape) : m_shape(shape) {}

    QIconEngine* clone() const override { return new DrawnIconEngine(m_shape); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kIconUnits, rect.height() / kIconUnits);
        painter->fillPath(m_shape, QGuiApplication::palette().color(group, QPalette::ButtonText));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }

private:
    QPainterPath m_shape;
};

} // namespace

QIcon DrawnIcon(const QPainterPath& shape)
{
    return QIcon(new DrawnIconEngine(shape)); // the icon owns it
}

} // namespace host
