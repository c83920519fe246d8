#include "instance/DescriptionRenderer.h"

namespace {

constexpr quint16 GroupP = 16;
constexpr quint16 GroupQ = 17;

} // namespace

bool DescriptionRenderer::isInline(const ParameterCoordinate &coordinate)
{
    return coordinate.group() == GroupP || coordinate.group() == GroupQ;
}

QString DescriptionRenderer::html(
    const ParameterCoordinate &coordinate, const QString &name, const QString &text)
{
    // Pieces, not arg(): name and text may hold "%1".
    return QLatin1String("<body style=\"font-family:Segoe UI, Arial, Helvetica, "
                         "Swiss;font-weight:normal;padding:0;\">"
                         "<p style=\"margin-top:0px; margin-bottom:0px; font-size:10pt;\"><b>")
        + coordinate.toText() + QLatin1String(" | ") + name
        + QLatin1String("</b></p>"
                        "<p style=\"margin-top:0px; margin-bottom:20px; font-size:10pt;\"><hr></p>")
        + text + QLatin1String("</body>");
}

QString DescriptionRenderer::referenceKey(
    const QString &addressText, const QString &reference, quint32 version)
{
    return addressText + QLatin1Char('_') + reference + QLatin1Char('_') + QString::number(version);
}
