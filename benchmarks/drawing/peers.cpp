#include "drawing/peers.h"

#include <QtGui/QFont>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <pango/pangocairo.h>

namespace Bench {
namespace {

constexpr int kSide = 1000; // units
constexpr int kFontSize = 11;

QImage Wrapped(const Picture& picture)
{
    return {reinterpret_cast<const uchar*>(picture.pixels.data()), picture.side, picture.side,
            QImage::Format_ARGB32_Premultiplied};
}

// Fonts of Qt need an application.
void StartQt()
{
    static int count = 3;
    static char name[] = "bench";
    static char option[] = "-platform";
    static char value[] = "offscreen";
    static char* arguments[] = {name, option, value, nullptr};
    static QGuiApplication application(count, arguments);
}

class Qt final : public Peer {
public:
    Qt(double scale, const Picture& icon, const Picture& large)
        : fImage(static_cast<int>(kSide * scale), static_cast<int>(kSide * scale),
                 QImage::Format_ARGB32_Premultiplied),
          fIcon(Wrapped(icon)), fLarge(Wrapped(large)), fScale(scale)
    {
        fImage.fill(0xFFFFFFFF);
        fPainter.begin(&fImage);
        fPainter.scale(scale, scale);
        fFont = QFont("DejaVu Sans Condensed");
        fFont.setPixelSize(kFontSize);
        fPainter.setFont(fFont);
    }
    ~Qt() override { fPainter.end(); }

    void FillRect(double x, double y, double width, double height) override
    {
        fPainter.fillRect(QRectF(x, y, width, height), QColor(18, 128, 143));
    }
    void RoundedRect(double x, double y, double width, double height, double radius) override
    {
        fPainter.setRenderHint(QPainter::Antialiasing);
        fPainter.setPen(QPen(QColor(130, 134, 138), 1));
        fPainter.setBrush(QColor(251, 251, 251));
        fPainter.drawRoundedRect(QRectF(x + 0.5, y + 0.5, width - 1, height - 1), radius, radius);
        fPainter.setRenderHint(QPainter::Antialiasing, false);
    }
    void Text(double x, double baseLine, const std::string& text) override
    {
        fPainter.setPen(QColor(35, 40, 43));
        fPainter.drawText(QPointF(x, baseLine), QString::fromStdString(text));
    }
    void Icon(double x, double y) override
    {
        fPainter.drawImage(QRectF(x, y, fIcon.width() / fScale, fIcon.height() / fScale), fIcon);
    }
    void Stretched(double side) override
    {
        fPainter.setRenderHint(QPainter::SmoothPixmapTransform);
        fPainter.drawImage(QRectF(0, 0, side, side), fLarge);
        fPainter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    }

private:
    QImage fImage;
    QImage fIcon;
    QImage fLarge;
    QPainter fPainter;
    QFont fFont;
    double fScale;
};

cairo_surface_t* Surface(const Picture& picture)
{
    auto* bytes = reinterpret_cast<unsigned char*>(
        const_cast<std::uint32_t*>(picture.pixels.data())); // only read
    return cairo_image_surface_create_for_data(bytes, CAIRO_FORMAT_ARGB32, picture.side,
                                               picture.side, picture.side * 4);
}

class Cairo final : public Peer {
public:
    Cairo(double scale, const Picture& icon, const Picture& large)
        : fSurface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(kSide * scale),
                                              static_cast<int>(kSide * scale))),
          fContext(cairo_create(fSurface)), fIcon(Surface(icon)), fLarge(Surface(large)),
          fLargeSide(large.side), fScale(scale), fLayout(pango_cairo_create_layout(fContext))
    {
        cairo_set_source_rgb(fContext, 1, 1, 1);
        cairo_paint(fContext);
        PangoFontDescription* font = pango_font_description_from_string("DejaVu Sans Condensed");
        pango_font_description_set_absolute_size(font, kFontSize * scale * PANGO_SCALE);
        pango_layout_set_font_description(fLayout, font);
        pango_font_description_free(font);
    }
    ~Cairo() override
    {
        g_object_unref(fLayout);
        cairo_surface_destroy(fLarge);
        cairo_surface_destroy(fIcon);
        cairo_destroy(fContext);
        cairo_surface_destroy(fSurface);
    }

    void FillRect(double x, double y, double width, double height) override
    {
        cairo_set_source_rgb(fContext, 0.07, 0.5, 0.56);
        cairo_rectangle(fContext, x * fScale, y * fScale, width * fScale, height * fScale);
        cairo_fill(fContext);
    }
    void RoundedRect(double x, double y, double width, double height, double radius) override
    {
        cairo_save(fContext);
        cairo_scale(fContext, fScale, fScale);
        const double right = x + width - 0.5;
        const double bottom = y + height - 0.5;
        x += 0.5;
        y += 0.5;
        constexpr double kQuarter = 1.5707963267948966;
        cairo_new_sub_path(fContext);
        cairo_arc(fContext, right - radius, y + radius, radius, -kQuarter, 0);
        cairo_arc(fContext, right - radius, bottom - radius, radius, 0, kQuarter);
        cairo_arc(fContext, x + radius, bottom - radius, radius, kQuarter, 2 * kQuarter);
        cairo_arc(fContext, x + radius, y + radius, radius, 2 * kQuarter, 3 * kQuarter);
        cairo_close_path(fContext);
        cairo_set_source_rgb(fContext, 0.98, 0.98, 0.98);
        cairo_fill_preserve(fContext);
        cairo_set_source_rgb(fContext, 0.51, 0.53, 0.54);
        cairo_set_line_width(fContext, 1);
        cairo_stroke(fContext);
        cairo_restore(fContext);
    }
    void Text(double x, double baseLine, const std::string& text) override
    {
        pango_layout_set_text(fLayout, text.c_str(), static_cast<int>(text.size()));
        cairo_set_source_rgb(fContext, 0.14, 0.16, 0.17);
        cairo_move_to(fContext, x * fScale, baseLine * fScale);
        pango_cairo_show_layout_line(fContext, pango_layout_get_line_readonly(fLayout, 0));
    }
    void Icon(double x, double y) override
    {
        cairo_set_source_surface(fContext, fIcon, x * fScale, y * fScale);
        cairo_paint(fContext);
    }
    void Stretched(double side) override
    {
        cairo_save(fContext);
        cairo_scale(fContext, side * fScale / fLargeSide, side * fScale / fLargeSide);
        cairo_set_source_surface(fContext, fLarge, 0, 0);
        cairo_paint(fContext);
        cairo_restore(fContext);
    }

private:
    cairo_surface_t* fSurface;
    cairo_t* fContext;
    cairo_surface_t* fIcon;
    cairo_surface_t* fLarge;
    int fLargeSide;
    double fScale;
    PangoLayout* fLayout;
};

} // namespace

std::unique_ptr<Peer> MakeQt(double scale, const Picture& icon, const Picture& large)
{
    StartQt();
    return std::make_unique<Qt>(scale, icon, large);
}

std::unique_ptr<Peer> MakeCairo(double scale, const Picture& icon, const Picture& large)
{
    return std::make_unique<Cairo>(scale, icon, large);
}

} // namespace Bench
