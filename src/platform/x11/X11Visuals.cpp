#include "platform/x11/X11Visuals.h"

namespace Kovrel {

namespace {

bool isArgb(const xcb_render_pictforminfo_t& format)
{
    const xcb_render_directformat_t& direct = format.direct;
    return format.type == XCB_RENDER_PICT_TYPE_DIRECT && format.depth == 32 && direct.alpha_mask == 0xff &&
           direct.alpha_shift == 24 && direct.red_shift == 16 && direct.green_shift == 8 && direct.blue_shift == 0;
}

xcb_render_pictformat_t argbFormat(const xcb_render_query_pict_formats_reply_t& formats)
{
    const xcb_render_pictforminfo_t* infos = xcb_render_query_pict_formats_formats(&formats);
    for (int index = 0; index < xcb_render_query_pict_formats_formats_length(&formats); ++index)
        if (isArgb(infos[index]))
            return infos[index].id;
    return XCB_NONE;
}

xcb_render_pictscreen_t* screenWithNumber(const xcb_render_query_pict_formats_reply_t& formats, int number)
{
    auto screens = xcb_render_query_pict_formats_screens_iterator(&formats);
    while (screens.rem > 1 && number-- > 0)
        xcb_render_pictscreen_next(&screens);
    return screens.data;
}

} // namespace

X11Visuals X11Visuals::read(X11Connection& x)
{
    X11Visuals found;
    if (!x.isAlive() || !x.has(xcb_render_id))
        return found;
    const auto formats = x.reply(xcb_render_query_pict_formats_reply, xcb_render_query_pict_formats(x.handle()));
    if (!formats)
        return found;
    const xcb_render_pictformat_t argb = argbFormat(*formats);
    auto depths = xcb_render_pictscreen_depths_iterator(screenWithNumber(*formats, x.screenNumber()));
    for (; depths.rem > 0; xcb_render_pictdepth_next(&depths)) {
        const xcb_render_pictvisual_t* visuals = xcb_render_pictdepth_visuals(depths.data);
        for (int index = 0; index < xcb_render_pictdepth_visuals_length(depths.data); ++index) {
            const X11Visual visual{depths.data->depth, visuals[index].visual, visuals[index].format};
            if (visual.id == x.screen().root_visual)
                found.opaque = visual;
            if (visual.depth == 32 && visual.format == argb && found.translucent.id == XCB_NONE)
                found.translucent = visual;
        }
    }
    return found;
}

} // namespace Kovrel
