// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "drawing/view/Views.h"
#include "model/AppState.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"

namespace zeph {

using namespace Qt::StringLiterals;

View quoteWidget(const WidgetContext &context) {
    const std::optional<QuoteInfo> &quote = *context.state.quote;
    if (!quote) {
        return {};
    }
    TextStyle words = textStyle(context.palette, 17, FontWeight::light, 0.85);
    words.font.italic = true;

    FrameSpec frame;
    frame.maxWidth = 520;
    frame.horizontal = HorizontalAlignment::leading;
    return framed(
        verticalStack(6, {wrappingText(u'“' + quote->text + u'”', words),
                          text(u"- "_s + quote->author,
                               textStyle(context.palette, 13, FontWeight::regular, 0.55))}),
        frame);
}

} // namespace zeph
