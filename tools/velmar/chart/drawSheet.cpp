#include "chart/drawSheet.h"

#include "chart/paper/canvas.h"
#include "chart/paper/margins.h"

namespace velmar::tool {

std::string drawSheet(const Sheet& sheet, const Layers& layers, ChartTexts texts,
                      const std::function<void(cairo_t*)>& drawBar, const std::string& format) {
    return renderPage(format, sheet.size, [&](cairo_t* ink) {
        Page page{ink, sheet.map, {}};
        drawMap(page, layers);
        drawBar(ink);
        for (const auto& layer : layers) {
            const std::string remark = layer->remark();
            if (!remark.empty()) texts.caption += "; " + remark;
        }
        drawTitle(ink, sheet, texts);
        drawCaption(ink, sheet, texts);
    });
}

}  // namespace velmar::tool
