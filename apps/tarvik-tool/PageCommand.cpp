#include "Commands.h"
#include "TemplateToolSupport.h"
#include "integrations/infopage/InfoPageFile.h"
#include "integrations/ui/InfoPageRender.h"

#include <QFileInfo>
#include <QImageWriter>
#include <QRegularExpression>

namespace {

QString usage() {
    return QStringLiteral("tarvik-tool page elements FILE.ini [--size WxH]\n"
                          "tarvik-tool page render FILE.ini --size WxH --out PAGE.png ") +
           TemplateToolState::kOptionsUsage +
           "\nA user page file (or \"MNInfo.ini\"), as Tarvik loads it.\n"
           "elements: CSV name,section,type,left,top,right,bottom,text of the elements in their first\n"
           "  state, the positions resolved for a page of WxH pixels (default 240x320), the text template\n"
           "  as written (\"Text\", \"Text_1\" ... one a line).\n"
           "render: draws the page offscreen into the PNG file PAGE.png, the templates filled in.\n" +
           TemplateToolState::kOptionsHelp;
}

// "800x480"; nothing when the text is no size from 1x1 to 8192x8192.
std::optional<QSize> parseSize(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch()) return std::nullopt;
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (size.width() < 1 || size.height() < 1 || size.width() > 8192 || size.height() > 8192)
        return std::nullopt;
    return size;
}

int listElements(ToolContext& ctx, const InfoPageFile& file, const QSize& size) {
    ctx.printCsvRow({"name", "section", "type", "left", "top", "right", "bottom", "text"});
    for (const QString& name : file.ElementNames()) {
        const auto spec = file.ReadElement(name, 0);
        if (!spec) continue;
        const Rect rect = resolveElementRect(spec->pos, size.width(), size.height());
        ctx.printCsvRow({name, spec->strSection, QString::number(spec->nType), QString::number(rect.left),
                         QString::number(rect.top), QString::number(rect.right), QString::number(rect.bottom),
                         spec->Template()});
    }
    return ToolContext::kOk;
}

} // namespace

int runPageCommand(ToolContext& ctx, QStringList args) {
    if (ToolContext::helpRequested(args)) return ctx.printUsage(usage());
    if (args.isEmpty()) return ctx.usageError("missing verb", usage());
    const QString verb = args.takeFirst();
    if (verb != QLatin1String("elements") && verb != QLatin1String("render"))
        return ctx.usageError(ToolContext::unknownVerbProblem(verb), usage());
    const bool bRender = verb == QLatin1String("render");
    QStringList valueOptions = {"--size"};
    if (bRender) valueOptions << "--out" << TemplateToolState::valueOptions();
    const ToolOptions options(args, valueOptions);
    if (!options.ok()) return ctx.usageError(options.error(), usage());
    if (options.positional().size() != 1)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 1), usage());
    if (bRender && (!options.has("--size") || !options.has("--out")))
        return ctx.usageError("render needs --size and --out", usage());
    const auto size = parseSize(options.value("--size", "240x320"));
    if (!size) return ctx.usageError("--size needs WxH, not '" + options.value("--size") + "'", usage());

    InfoPageFile file;
    const QString path = options.positional().first();
    if (QFileInfo(path).isDir() || !file.Load(path)) return ctx.inputError("cannot read " + path);
    if (!bRender) return listElements(ctx, file, *size);

    TemplateToolState state;
    if (const auto exitCode = state.prepare(ctx, options, usage())) return *exitCode;
    QImageWriter writer(options.value("--out"), "png");
    if (!writer.write(renderInfoPage(file, *size, state.sources())))
        return ctx.inputError("cannot write " + options.value("--out") + ": " + writer.errorString());
    return ToolContext::kOk;
}
