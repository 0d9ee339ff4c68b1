# The command rows of the panel, generated from its command tables. Only these two lines are written by hand. To update
# the rows, build the target `protocol` of the panel.
import enum
from typing import NamedTuple

from .row import Row

# rows: begin

SYSTEM_VERSION: Row[str] = Row(
    "system.version", bytes.fromhex("B0 00"),
    (), (("selector", "s8"),),
    (("text", "text"),),
    str, True, False,
    "Version text: selector 0 application, 1 runtime, 2 firmware.")

SYSTEM_REBOOT: Row[int] = Row(
    "system.reboot", bytes.fromhex("B0 01"),
    (), (),
    (("word", "u16"),),
    int, True, True,
    "Reads 0xAABB; also sent at power-on. Writing 0xCCDD reboots.", chooses=None)

SYSTEM_BRIGHT: Row[int] = Row(
    "system.bright", bytes.fromhex("B0 02"),
    (), (),
    (("percent", "u8"),),
    int, False, True,
    "Brightness of the display in percent.")


class SystemTone(NamedTuple):
    count: int  # type: ignore[assignment]
    pause_ms: int
    tone_ms: int


SYSTEM_TONE: Row[SystemTone] = Row(
    "system.tone", bytes.fromhex("B0 03"),
    (), (),
    (("count", "u8"), ("pause_ms", "u16"), ("tone_ms", "u16")),
    SystemTone, False, True,
    "A series of tones; its tone time applies to touches too.", chooses=None)

SYSTEM_TOUCH_CONFIG: Row[int] = Row(
    "system.touch_config", bytes.fromhex("B0 04 00"),
    (), (),
    (("flags", "u8"),),
    int, True, True,
    "Touch flags: bit 0 pauses the panel, 1 tones on, 2 for raw touch, 3 at release, 4 report press, 5 release, 6 hold, 7 calibration taps.")


class SystemTouch(NamedTuple):
    state: int
    x: int
    y: int


SYSTEM_TOUCH: Row[SystemTouch] = Row(
    "system.touch", bytes.fromhex("B0 04 01"),
    (), (),
    (("state", "u8"), ("x", "u16"), ("y", "u16")),
    SystemTouch, True, False,
    "The current touch: state 0 released, 1 pressed, 2 held, and its point. Also sent by the panel, as touch_config says.")


class SystemRtc(NamedTuple):
    year: int
    month: int
    day: int
    hour: int
    minute: int
    second: int


SYSTEM_RTC: Row[SystemRtc] = Row(
    "system.rtc", bytes.fromhex("B0 05"),
    (), (),
    (("year", "u16"), ("month", "u8"), ("day", "u8"), ("hour", "u8"), ("minute", "u8"), ("second", "u8")),
    SystemRtc, True, True,
    "Date and time.", chooses=None)


class SystemStandby(NamedTuple):
    stdby_view: int
    stdby_time: int
    stdby_bright: int
    off_time: int
    off_bright: int
    on_bright: int
    on_view: int


SYSTEM_STANDBY: Row[SystemStandby] = Row(
    "system.standby", bytes.fromhex("B0 06 00"),
    (), (),
    (("stdby_view", "u16"), ("stdby_time", "u16"), ("stdby_bright", "u8"), ("off_time", "u16"), ("off_bright", "u8"), ("on_bright", "u8"), ("on_view", "u16")),
    SystemStandby, True, True,
    "Standby: times in seconds, 0 for never; brightness in percent; views, 0 for none.")

SYSTEM_STANDBY_STATE: Row[int] = Row(
    "system.standby_state", bytes.fromhex("B0 06 01"),
    (), (),
    (("state", "u8"),),
    int, True, True,
    "State of standby: 0 normal, 1 dimmed, 2 off.", chooses=None)

SYSTEM_LANGUAGE: Row[str] = Row(
    "system.language", bytes.fromhex("B0 07 00"),
    (), (),
    (("name", "text"),),
    str, False, True,
    "Makes a language of the project the current one and updates all texts.")

VIEW_DISPLAY: Row[int] = Row(
    "view.display", bytes.fromhex("B1 00"),
    (), (),
    (("view", "u16"),),
    int, False, True,
    "Shows a view on the layer of its file.")

VIEW_DISPLAYED: Row[int] = Row(
    "view.displayed", bytes.fromhex("B1 01"),
    (), (("layer", "s8"),),
    (("view", "u16"),),
    int, True, False,
    "The view on a layer: 0 interface, 1 state, 2 top; 65535 for none.")


class ViewLayer(NamedTuple):
    layer: int
    view: int


VIEW_LAYER: Row[ViewLayer] = Row(
    "view.layer", bytes.fromhex("B1 02"),
    (), (),
    (("layer", "u8"), ("view", "u16")),
    ViewLayer, False, True,
    "Kept for old hosts: a view's layer comes from its file.", chooses=None)

VIEW_HIDE_LAYER: Row[int] = Row(
    "view.hide_layer", bytes.fromhex("B1 03"),
    (), (),
    (("layer", "u8"),),
    int, False, True,
    "Takes the view off a layer: 0 interface, 1 state, 2 top, 3 background.", chooses=None)

VIEW_LOAD: Row[int] = Row(
    "view.load", bytes.fromhex("B1 04"),
    (), (),
    (("view", "u16"),),
    int, False, True,
    "Makes a view ready without showing it.", chooses=1)


class ViewBgColor(NamedTuple):
    view: int
    argb: int


VIEW_BG_COLOR: Row[ViewBgColor] = Row(
    "view.bg_color", bytes.fromhex("B1 05"),
    (), (),
    (("view", "u16"), ("argb", "u32")),
    ViewBgColor, False, True,
    "Background of a view: opacity in the top byte, then red, green, blue.", chooses=1)


class ViewSize(NamedTuple):
    width: int
    height: int


VIEW_SIZE: Row[ViewSize] = Row(
    "view.size", bytes.fromhex("B1 06"),
    (), (),
    (("width", "u16"), ("height", "u16")),
    ViewSize, True, False,
    "The project's width and height in pixels.")


class ViewBgImage(NamedTuple):
    view: int
    image: str


VIEW_BG_IMAGE: Row[ViewBgImage] = Row(
    "view.bg_image", bytes.fromhex("B1 07"),
    (), (("unused", "u16"),),
    (("view", "u16"), ("image", "text")),
    ViewBgImage, False, True,
    "Background image of a view; the request field is not used.", chooses=1)


class ViewSnapshot(NamedTuple):
    seq: int
    more: int
    control: int
    number: int
    text: str


VIEW_SNAPSHOT: Row[ViewSnapshot] = Row(
    "view.snapshot", bytes.fromhex("B1 08"),
    (), (("view", "u16"), ("index", "u16")),
    (("seq", "u8"), ("more", "u8"), ("control", "u16"), ("number", "s32"), ("text", "text")),
    ViewSnapshot, True, False,
    "What one control of a view stands at, counted from 0 among those with a value: `more` is 1 if others follow; control 0 if there is none with this number, then with the number -1 if the view is not loaded.")


class ViewStack(NamedTuple):
    interface: int
    state: int
    top: int
    background: int


VIEW_STACK: Row[ViewStack] = Row(
    "view.stack", bytes.fromhex("B1 09"),
    (), (),
    (("interface", "u16"), ("state", "u16"), ("top", "u16"), ("background", "u16")),
    ViewStack, True, False,
    "The views on all layers, 65535 for none.")

VIEW_EVENTS: Row[int] = Row(
    "view.events", bytes.fromhex("B1 0A"),
    (), (),
    (("seq", "u8"),),
    int, True, False,
    "The number of the last event that was sent, modulo 256.")

CONTROL_HIDDEN: Row[int] = Row(
    "control.hidden", bytes.fromhex("B2 F0 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("hidden", "s8"),),
    int, True, True,
    "Whether the control is hidden: 1 or 0.")

CONTROL_WIDTH: Row[int] = Row(
    "control.width", bytes.fromhex("B2 F0 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("width", "u16"),),
    int, True, False,
    "Width in pixels.")

CONTROL_HEIGHT: Row[int] = Row(
    "control.height", bytes.fromhex("B2 F0 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("height", "u16"),),
    int, True, False,
    "Height in pixels.")


class ControlPos(NamedTuple):
    x: int
    y: int


CONTROL_POS: Row[ControlPos] = Row(
    "control.pos", bytes.fromhex("B2 F0 03"),
    (("view", "u16"), ("control", "u16")), (),
    (("x", "s16"), ("y", "s16")),
    ControlPos, False, True,
    "Moves the control within its parent.")


class ControlSize(NamedTuple):
    width: int
    height: int


CONTROL_SIZE: Row[ControlSize] = Row(
    "control.size", bytes.fromhex("B2 F0 04"),
    (("view", "u16"), ("control", "u16")), (),
    (("width", "u16"), ("height", "u16")),
    ControlSize, False, True,
    "Width and height in pixels.")

CONTROL_ALPHA: Row[int] = Row(
    "control.alpha", bytes.fromhex("B2 F0 05"),
    (("view", "u16"), ("control", "u16")), (),
    (("alpha", "u8"),),
    int, False, True,
    "Opacity, 255 for opaque.")

CONTROL_MOVE: Row[int] = Row(
    "control.move", bytes.fromhex("B2 F0 06"),
    (("view", "u16"), ("control", "u16")), (),
    (("where", "u8"),),
    int, False, True,
    "To the bottom (0) or the top (1) of its parent's children.", chooses=None)

CONTROL_TOUCH: Row[int] = Row(
    "control.touch", bytes.fromhex("B2 F0 07"),
    (("view", "u16"), ("control", "u16")), (),
    (("touch", "u8"),),
    int, False, True,
    "1 takes touches, 0 lets them through.")

CONTROL_CLICK_AREA: Row[int] = Row(
    "control.click_area", bytes.fromhex("B2 F0 08"),
    (("view", "u16"), ("control", "u16")), (),
    (("pixels", "u16"),),
    int, False, True,
    "Widens the area that takes touches by so many pixels.")


class ControlAlign(NamedTuple):
    align: int
    x: int
    y: int


CONTROL_ALIGN: Row[ControlAlign] = Row(
    "control.align", bytes.fromhex("B2 F0 09"),
    (("view", "u16"), ("control", "u16")), (("base", "u16"),),
    (("align", "u8"), ("x", "s16"), ("y", "s16")),
    ControlAlign, False, True,
    "Places the control at another one of its view.")

CONTROL_CHILDREN: Row[int] = Row(
    "control.children", bytes.fromhex("B2 F0 0A"),
    (("view", "u16"), ("control", "u16")), (),
    (("count", "u16"),),
    int, True, False,
    "How many children the control has.")


class ControlXy(NamedTuple):
    x: int
    y: int


CONTROL_XY: Row[ControlXy] = Row(
    "control.xy", bytes.fromhex("B2 F0 0B"),
    (("view", "u16"), ("control", "u16")), (),
    (("x", "u16"), ("y", "u16")),
    ControlXy, True, False,
    "Where the control stands within its parent.")


class ControlScrollTo(NamedTuple):
    animate: int
    x: int
    y: int


CONTROL_SCROLL_TO: Row[ControlScrollTo] = Row(
    "control.scroll_to", bytes.fromhex("B2 F0 0C"),
    (("view", "u16"), ("control", "u16")), (),
    (("animate", "u8"), ("x", "s16"), ("y", "s16")),
    ControlScrollTo, False, True,
    "Scrolls the contents, at once (0) or in an animation (1).")


class ControlScroll(NamedTuple):
    x: int
    y: int


CONTROL_SCROLL: Row[ControlScroll] = Row(
    "control.scroll", bytes.fromhex("B2 F0 0D"),
    (("view", "u16"), ("control", "u16")), (),
    (("x", "s16"), ("y", "s16")),
    ControlScroll, True, False,
    "How far the contents are scrolled.")


class ControlEvent(NamedTuple):
    seq: int
    event: int
    number: int
    text: str


CONTROL_EVENT: Row[ControlEvent] = Row(
    "control.event", bytes.fromhex("B2 F0 0E"),
    (("view", "u16"), ("control", "u16")), (),
    (("seq", "u8"), ("event", "u8"), ("number", "s32"), ("text", "text")),
    ControlEvent, True, False,
    "What the control stands at; also sent by the panel for each event, with `event_en`. The number counts events modulo 256.")

CONTROL_PRESENT: Row[int] = Row(
    "control.present", bytes.fromhex("B2 F0 0F"),
    (("view", "u16"), ("control", "u16")), (),
    (("present", "s8"),),
    int, True, False,
    "1 if the control can be read and written, 0 if its view is not loaded, -1 if there is no such control.")

CONTROL_KEY: Row[str] = Row(
    "control.key", bytes.fromhex("B2 F0 10"),
    (("view", "u16"), ("control", "u16")), (),
    (("key", "text"),),
    str, True, True,
    "The language key, with #, that its text or picture follows; empty if there is no such key. A write shows the text or picture of another key.")

LABEL_TEXT: Row[str] = Row(
    "label.text", bytes.fromhex("B2 00 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, True, True,
    "The text; one that begins with # is looked up in the language.")

LABEL_COLOR: Row[int] = Row(
    "label.color", bytes.fromhex("B2 00 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("rgb", "u32"),),
    int, False, True,
    "Colour of the text, 0xRRGGBB.")

LABEL_FONT_SIZE: Row[int] = Row(
    "label.font_size", bytes.fromhex("B2 00 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("pixels", "u16"),),
    int, False, True,
    "Size of the text in pixels, 1 to 512.")

LABEL_LONG_MODE: Row[int] = Row(
    "label.long_mode", bytes.fromhex("B2 00 03"),
    (("view", "u16"), ("control", "u16")), (),
    (("mode", "u8"),),
    int, False, True,
    "What a long text does: 0 wraps, 1 ends in dots, 2 scrolls, 3 scrolls in circles, 4 is cut.")

LABEL_SCROLL_SPEED: Row[int] = Row(
    "label.scroll_speed", bytes.fromhex("B2 00 04"),
    (("view", "u16"), ("control", "u16")), (),
    (("speed", "u16"),),
    int, False, True,
    "Speed of a scrolling text in pixels a second.")

LABEL_ALIGN: Row[int] = Row(
    "label.align", bytes.fromhex("B2 00 05"),
    (("view", "u16"), ("control", "u16")), (),
    (("align", "u8"),),
    int, False, True,
    "Low half: alignment of the lines; high half: 1 top, 2 middle, 3 bottom.")

BUTTON_TEXT: Row[str] = Row(
    "button.text", bytes.fromhex("B2 01 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, False, True,
    "The text on the button.")


class ButtonColor(NamedTuple):
    selector: int
    rgb: int


BUTTON_COLOR: Row[ButtonColor] = Row(
    "button.color", bytes.fromhex("B2 01 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("selector", "u8"), ("rgb", "u32")),
    ButtonColor, False, True,
    "Colour of the text in a state, 0xRRGGBB.", chooses=1)

BUTTON_FONT_SIZE: Row[int] = Row(
    "button.font_size", bytes.fromhex("B2 01 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("pixels", "u16"),),
    int, False, True,
    "Size of the text in pixels, 1 to 512.")

BUTTON_MODE: Row[int] = Row(
    "button.mode", bytes.fromhex("B2 01 03"),
    (("view", "u16"), ("control", "u16")), (),
    (("mode", "u8"),),
    int, False, True,
    "0 springs back, 1 stays down at every other click.")

BUTTON_STATE: Row[int] = Row(
    "button.state", bytes.fromhex("B2 01 04"),
    (("view", "u16"), ("control", "u16")), (),
    (("state", "u8"),),
    int, True, True,
    "State bits: 1 checked, 32 pressed, 128 disabled.")

IMAGE_IMAGE: Row[str] = Row(
    "image.image", bytes.fromhex("B2 02 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("name", "text"),),
    str, True, True,
    "The picture, a file of the project.")

IMAGE_ANGLE: Row[int] = Row(
    "image.angle", bytes.fromhex("B2 02 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("angle", "u16"),),
    int, False, True,
    "Turns the picture, in tenths of a degree.")


class ImagePivot(NamedTuple):
    x: int
    y: int


IMAGE_PIVOT: Row[ImagePivot] = Row(
    "image.pivot", bytes.fromhex("B2 02 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("x", "s16"), ("y", "s16")),
    ImagePivot, False, True,
    "The point around which the picture turns.")

IMAGE_ZOOM: Row[int] = Row(
    "image.zoom", bytes.fromhex("B2 02 03"),
    (("view", "u16"), ("control", "u16")), (),
    (("zoom", "u16"),),
    int, False, True,
    "Zoom, 256 is 100 %.")

IMAGE_BUTTON_TEXT: Row[str] = Row(
    "image_button.text", bytes.fromhex("B2 03 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, False, True,
    "The text on the button.")


class ImageButtonColor(NamedTuple):
    state: int
    rgb: int


IMAGE_BUTTON_COLOR: Row[ImageButtonColor] = Row(
    "image_button.color", bytes.fromhex("B2 03 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("state", "u8"), ("rgb", "u32")),
    ImageButtonColor, False, True,
    "Colour of the text in a state, 0xRRGGBB.", chooses=1)

IMAGE_BUTTON_FONT_SIZE: Row[int] = Row(
    "image_button.font_size", bytes.fromhex("B2 03 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("pixels", "u16"),),
    int, False, True,
    "Size of the text in pixels, 1 to 512.")

IMAGE_BUTTON_STATE: Row[int] = Row(
    "image_button.state", bytes.fromhex("B2 03 03"),
    (("view", "u16"), ("control", "u16")), (),
    (("state", "u8"),),
    int, False, True,
    "0 released, 1 pressed, 2 disabled, 3 checked, 4 checked and pressed, 5 checked and disabled.")


class ImageButtonImage(NamedTuple):
    state: int
    name: str


IMAGE_BUTTON_IMAGE: Row[ImageButtonImage] = Row(
    "image_button.image", bytes.fromhex("B2 03 04"),
    (("view", "u16"), ("control", "u16")), (),
    (("state", "u8"), ("name", "text")),
    ImageButtonImage, False, True,
    "The picture of a state.", chooses=1)


class LineLook(NamedTuple):
    rgb: int
    width: int
    opa: int
    rounded: int


LINE_LOOK: Row[LineLook] = Row(
    "line.look", bytes.fromhex("B2 04 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("rgb", "u32"), ("width", "u16"), ("opa", "u8"), ("rounded", "u8")),
    LineLook, False, True,
    "Colour 0xRRGGBB, width, opacity, and whether the ends are round.")


class ArcLook(NamedTuple):
    rgb: int
    width: int
    opa: int
    rounded: int


ARC_LOOK: Row[ArcLook] = Row(
    "arc.look", bytes.fromhex("B2 05 00"),
    (("view", "u16"), ("control", "u16")), (("part", "s8"),),
    (("rgb", "u32"), ("width", "u16"), ("opa", "u8"), ("rounded", "u8")),
    ArcLook, False, True,
    "Look of a part: 0 background, 1 indicator.")

ARC_KNOB_COLOR: Row[int] = Row(
    "arc.knob_color", bytes.fromhex("B2 05 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("rgb", "u32"),),
    int, False, True,
    "Colour of the knob, 0xRRGGBB.")


class ArcRange(NamedTuple):
    min: int
    max: int


ARC_RANGE: Row[ArcRange] = Row(
    "arc.range", bytes.fromhex("B2 05 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("min", "s16"), ("max", "s16")),
    ArcRange, False, True,
    "The values of both ends.")

ARC_VALUE: Row[int] = Row(
    "arc.value", bytes.fromhex("B2 05 03"),
    (("view", "u16"), ("control", "u16")), (),
    (("value", "s16"),),
    int, True, True,
    "The value, kept within the range.")

ARC_ROTATION: Row[int] = Row(
    "arc.rotation", bytes.fromhex("B2 05 04"),
    (("view", "u16"), ("control", "u16")), (),
    (("degrees", "u16"),),
    int, False, True,
    "Turns the whole arc, in degrees.")


class ArcAngles(NamedTuple):
    start: int
    end: int


ARC_ANGLES: Row[ArcAngles] = Row(
    "arc.angles", bytes.fromhex("B2 05 05"),
    (("view", "u16"), ("control", "u16")), (),
    (("start", "u16"), ("end", "u16")),
    ArcAngles, False, True,
    "Angles of both ends, clockwise from the right, in degrees.")

BAR_COLOR: Row[int] = Row(
    "bar.color", bytes.fromhex("B2 06 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("rgb", "u32"),),
    int, False, True,
    "Colour of the indicator, 0xRRGGBB.")

BAR_VALUE: Row[int] = Row(
    "bar.value", bytes.fromhex("B2 06 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("value", "s16"),),
    int, True, True,
    "The value, kept within the range.")


class BarRange(NamedTuple):
    min: int
    max: int


BAR_RANGE: Row[BarRange] = Row(
    "bar.range", bytes.fromhex("B2 06 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("min", "s16"), ("max", "s16")),
    BarRange, False, True,
    "The values of both ends.")

SLIDER_COLOR: Row[int] = Row(
    "slider.color", bytes.fromhex("B2 07 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("rgb", "u32"),),
    int, False, True,
    "Colour of the indicator, 0xRRGGBB.")

SLIDER_VALUE: Row[int] = Row(
    "slider.value", bytes.fromhex("B2 07 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("value", "s16"),),
    int, True, True,
    "The value, kept within the range.")


class SliderRange(NamedTuple):
    min: int
    max: int


SLIDER_RANGE: Row[SliderRange] = Row(
    "slider.range", bytes.fromhex("B2 07 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("min", "s16"), ("max", "s16")),
    SliderRange, False, True,
    "The values of both ends.")

SWITCH_ON: Row[int] = Row(
    "switch.on", bytes.fromhex("B2 08 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("on", "u8"),),
    int, True, True,
    "Whether the switch is on.")

CHECK_BOX_TEXT: Row[str] = Row(
    "check_box.text", bytes.fromhex("B2 09 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, False, True,
    "The text beside the box.")

CHECK_BOX_CHECKED: Row[int] = Row(
    "check_box.checked", bytes.fromhex("B2 09 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("checked", "u8"),),
    int, True, True,
    "Whether the box is checked.")

CHECK_BOX_DISABLED: Row[int] = Row(
    "check_box.disabled", bytes.fromhex("B2 09 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("disabled", "u8"),),
    int, True, True,
    "Whether the box takes no touches.")

MESSAGE_BOX_TITLE: Row[str] = Row(
    "message_box.title", bytes.fromhex("B2 0A 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, False, True,
    "The title.")

MESSAGE_BOX_TEXT: Row[str] = Row(
    "message_box.text", bytes.fromhex("B2 0A 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, False, True,
    "The text.")

MESSAGE_BOX_AUTO_CLOSE: Row[int] = Row(
    "message_box.auto_close", bytes.fromhex("B2 0A 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("ms", "u16"),),
    int, False, True,
    "Closes the box after a time in milliseconds.")

MESSAGE_BOX_OPEN: Row[int] = Row(
    "message_box.open", bytes.fromhex("B2 0A 03"),
    (("view", "u16"), ("control", "u16")), (),
    (("open", "u8"),),
    int, False, True,
    "Closes (0) or opens (1) the box.")

MESSAGE_BOX_CLICKED: Row[int] = Row(
    "message_box.clicked", bytes.fromhex("B2 0A 04"),
    (("view", "u16"), ("control", "u16")), (),
    (("button", "u16"),),
    int, True, False,
    "The button clicked last, counted from 0; 65535 for none.")

MESSAGE_BOX_CLICKED_TEXT: Row[str] = Row(
    "message_box.clicked_text", bytes.fromhex("B2 0A 05"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, True, False,
    "The caption of the button clicked last.")


class TileViewTile(NamedTuple):
    animate: int
    row: int
    column: int


TILE_VIEW_TILE: Row[TileViewTile] = Row(
    "tile_view.tile", bytes.fromhex("B2 0B 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("animate", "u8"), ("row", "u16"), ("column", "u16")),
    TileViewTile, False, True,
    "Goes to a tile, at once (0) or in an animation (1).")

TEXT_BOX_ADD_TEXT: Row[str] = Row(
    "text_box.add_text", bytes.fromhex("B2 0C 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, False, True,
    "Adds a text at the cursor.", chooses=None)

TEXT_BOX_ADD_CHAR: Row[int] = Row(
    "text_box.add_char", bytes.fromhex("B2 0C 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("character", "u32"),),
    int, False, True,
    "Adds a character at the cursor: its UTF-8 bytes, the first one in the lowest byte.", chooses=None)

TEXT_BOX_DELETE: Row[int] = Row(
    "text_box.delete", bytes.fromhex("B2 0C 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("forward", "u8"),),
    int, False, True,
    "Deletes the character before the cursor (0) or after it (1).", chooses=None)

TEXT_BOX_TEXT: Row[str] = Row(
    "text_box.text", bytes.fromhex("B2 0C 03"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, True, True,
    "The whole text.")

TEXT_BOX_PASSWORD: Row[int] = Row(
    "text_box.password", bytes.fromhex("B2 0C 04"),
    (("view", "u16"), ("control", "u16")), (),
    (("on", "u8"),),
    int, False, True,
    "Whether the text is shown as bullets.")

TEXT_BOX_CURSOR: Row[int] = Row(
    "text_box.cursor", bytes.fromhex("B2 0C 05"),
    (("view", "u16"), ("control", "u16")), (),
    (("where", "u8"),),
    int, False, True,
    "Moves the cursor: 0 right, 1 left, 2 down, 3 up.")

LIST_REMOVE: Row[int] = Row(
    "list.remove", bytes.fromhex("B2 0D 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("index", "u16"),),
    int, False, True,
    "Removes a button, counted from 0.", chooses=None)

LIST_CLEAR: Row[int] = Row(
    "list.clear", bytes.fromhex("B2 0D 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("any", "s8"),),
    int, False, True,
    "Removes all buttons; the value is ignored.", chooses=None)

LIST_TEXT: Row[str] = Row(
    "list.text", bytes.fromhex("B2 0D 02"),
    (("view", "u16"), ("control", "u16")), (("index", "u16"),),
    (("text", "text"),),
    str, True, True,
    "The text of a button, counted from 0.")

LIST_ADD: Row[str] = Row(
    "list.add", bytes.fromhex("B2 0D 03"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, False, True,
    "Adds a button at the end.", chooses=None)

LIST_SELECTED: Row[int] = Row(
    "list.selected", bytes.fromhex("B2 0D 04"),
    (("view", "u16"), ("control", "u16")), (),
    (("index", "u16"),),
    int, True, True,
    "The button that was touched last, 65535 for none; a write checks a button and no other.")

LIST_SELECTED_TEXT: Row[str] = Row(
    "list.selected_text", bytes.fromhex("B2 0D 05"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, True, False,
    "The text of the button that was touched last.")

DROP_LIST_ADD: Row[str] = Row(
    "drop_list.add", bytes.fromhex("B2 0E 00"),
    (("view", "u16"), ("control", "u16")), (("position", "u16"),),
    (("text", "text"),),
    str, False, True,
    "Inserts an option before a position, or appends it beyond the end.", chooses=None)

DROP_LIST_MODIFY: Row[str] = Row(
    "drop_list.modify", bytes.fromhex("B2 0E 01"),
    (("view", "u16"), ("control", "u16")), (("position", "u16"),),
    (("text", "text"),),
    str, False, True,
    "Replaces an option, counted from 0.")

DROP_LIST_REMOVE: Row[int] = Row(
    "drop_list.remove", bytes.fromhex("B2 0E 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("position", "u16"),),
    int, False, True,
    "Removes an option, counted from 0.", chooses=None)

DROP_LIST_OPEN: Row[int] = Row(
    "drop_list.open", bytes.fromhex("B2 0E 03"),
    (("view", "u16"), ("control", "u16")), (),
    (("open", "u8"),),
    int, False, True,
    "Closes (0) or opens (1) the list.")

DROP_LIST_SELECTED: Row[int] = Row(
    "drop_list.selected", bytes.fromhex("B2 0E 04"),
    (("view", "u16"), ("control", "u16")), (),
    (("index", "u16"),),
    int, True, True,
    "The selected option, counted from 0.")

DROP_LIST_SELECTED_TEXT: Row[str] = Row(
    "drop_list.selected_text", bytes.fromhex("B2 0E 05"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, True, False,
    "The text of the selected option.")

ROLLER_ADD: Row[str] = Row(
    "roller.add", bytes.fromhex("B2 0F 00"),
    (("view", "u16"), ("control", "u16")), (("position", "u16"),),
    (("text", "text"),),
    str, False, True,
    "Inserts an option before a position, or appends it beyond the end.", chooses=None)

ROLLER_MODIFY: Row[str] = Row(
    "roller.modify", bytes.fromhex("B2 0F 01"),
    (("view", "u16"), ("control", "u16")), (("position", "u16"),),
    (("text", "text"),),
    str, False, True,
    "Replaces an option, counted from 0.")

ROLLER_REMOVE: Row[int] = Row(
    "roller.remove", bytes.fromhex("B2 0F 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("position", "u16"),),
    int, False, True,
    "Removes an option, counted from 0.", chooses=None)

ROLLER_SELECTED: Row[int] = Row(
    "roller.selected", bytes.fromhex("B2 0F 03"),
    (("view", "u16"), ("control", "u16")), (),
    (("index", "u16"),),
    int, True, True,
    "The selected option, counted from 0.")

ROLLER_SELECTED_TEXT: Row[str] = Row(
    "roller.selected_text", bytes.fromhex("B2 0F 04"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, True, False,
    "The text of the selected option.")

GIF_PLAY: Row[int] = Row(
    "gif.play", bytes.fromhex("B2 10 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("which", "u8"),),
    int, False, True,
    "0 plays from the start, 1 pauses, 2 resumes.")

GIF_COUNT: Row[int] = Row(
    "gif.count", bytes.fromhex("B2 10 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("count", "u16"),),
    int, False, True,
    "Plays so many times from the start; 0 plays forever.")

GIF_SOURCE: Row[str] = Row(
    "gif.source", bytes.fromhex("B2 10 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("name", "text"),),
    str, False, True,
    "A file under image/, which plays at once.")

QR_CODE_TEXT: Row[str] = Row(
    "qr_code.text", bytes.fromhex("B2 11 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, False, True,
    "The text of the code.")

VIDEO_SOURCE: Row[str] = Row(
    "video.source", bytes.fromhex("B2 12 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("name", "text"),),
    str, False, True,
    "A file under video/ that ends in .mp4; its sound begins.")

VIDEO_STATE: Row[int] = Row(
    "video.state", bytes.fromhex("B2 12 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("state", "u8"),),
    int, True, True,
    "Picture and sound: 0 plays from the start, 1 stops, 2 pauses, 3 resumes.")

VIDEO_VOLUME: Row[int] = Row(
    "video.volume", bytes.fromhex("B2 12 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("volume", "u8"),),
    int, False, True,
    "128 is the file's own, 0 is silent.")


class VideoBox(NamedTuple):
    x: int
    y: int
    width: int
    height: int


VIDEO_BOX: Row[VideoBox] = Row(
    "video.box", bytes.fromhex("B2 12 03"),
    (("view", "u16"), ("control", "u16")), (),
    (("x", "u16"), ("y", "u16"), ("width", "u16"), ("height", "u16")),
    VideoBox, False, True,
    "Place and size in pixels.")

VIDEO_REPLAY: Row[int] = Row(
    "video.replay", bytes.fromhex("B2 12 04"),
    (("view", "u16"), ("control", "u16")), (),
    (("on", "u8"),),
    int, False, True,
    "Plays once (0), or again and again (1).")

KEYBOARD_KEY: Row[int] = Row(
    "keyboard.key", bytes.fromhex("B2 13 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("key", "u32"),),
    int, True, False,
    "The key pressed last, counted from 0; 65535 for none.")

KEYBOARD_CAPTION: Row[str] = Row(
    "keyboard.caption", bytes.fromhex("B2 13 01"),
    (("view", "u16"), ("control", "u16")), (("key", "u16"),),
    (("text", "text"),),
    str, True, False,
    "The caption of a key.")

KEYBOARD_TARGET: Row[int] = Row(
    "keyboard.target", bytes.fromhex("B2 13 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("box", "u16"),),
    int, False, True,
    "The text box that receives the keys, of the same view.")

KEYBOARD_TEXT: Row[str] = Row(
    "keyboard.text", bytes.fromhex("B2 13 03"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, True, True,
    "The text of the text box that receives the keys.")

SPIN_BOX_VALUE: Row[int] = Row(
    "spin_box.value", bytes.fromhex("B2 14 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("value", "s32"),),
    int, True, True,
    "The value, without its decimal point.")

SPIN_BOX_STEP: Row[int] = Row(
    "spin_box.step", bytes.fromhex("B2 14 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("which", "u8"),),
    int, False, True,
    "Chooses the digit to change: 0 the one before, 1 the next.")

SPIN_BOX_COUNT: Row[int] = Row(
    "spin_box.count", bytes.fromhex("B2 14 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("which", "u8"),),
    int, False, True,
    "Counts by one step: 0 down, 1 up.", chooses=None)


class TableText(NamedTuple):
    row: int
    column: int
    text: str


TABLE_TEXT: Row[TableText] = Row(
    "table.text", bytes.fromhex("B2 15 00"),
    (("view", "u16"), ("control", "u16")), (),
    (("row", "u16"), ("column", "u16"), ("text", "text")),
    TableText, False, True,
    "The text of a cell; beyond the end the table grows.", chooses=2)


class TableColumnWidth(NamedTuple):
    column: int
    width: int


TABLE_COLUMN_WIDTH: Row[TableColumnWidth] = Row(
    "table.column_width", bytes.fromhex("B2 15 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("column", "u16"), ("width", "u16")),
    TableColumnWidth, False, True,
    "Width of a column in pixels.", chooses=1)


class TableMergeRight(NamedTuple):
    row: int
    column: int


TABLE_MERGE_RIGHT: Row[TableMergeRight] = Row(
    "table.merge_right", bytes.fromhex("B2 15 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("row", "u16"), ("column", "u16")),
    TableMergeRight, False, True,
    "Merges a cell with the one to its right, or splits them.", chooses=2)


class TableLook(NamedTuple):
    border_rgb: int
    border_width: int
    border_opacity: int
    opacity: int
    rgb: int


TABLE_LOOK: Row[TableLook] = Row(
    "table.look", bytes.fromhex("B2 15 03"),
    (("view", "u16"), ("control", "u16")), (),
    (("border_rgb", "u32"), ("border_width", "u8"), ("border_opacity", "u8"), ("opacity", "u8"), ("rgb", "u32")),
    TableLook, False, True,
    "Borders and background of all cells; colours 0xRRGGBB.")

BUTTON_MATRIX_CAPTION: Row[str] = Row(
    "button_matrix.caption", bytes.fromhex("B2 16 00"),
    (("view", "u16"), ("control", "u16")), (("button", "u16"),),
    (("text", "text"),),
    str, True, True,
    "The caption of a button, counted from 0.")


class ButtonMatrixButtonFlags(NamedTuple):
    set: int
    button: int
    flags: int


BUTTON_MATRIX_BUTTON_FLAGS: Row[ButtonMatrixButtonFlags] = Row(
    "button_matrix.button_flags", bytes.fromhex("B2 16 01"),
    (("view", "u16"), ("control", "u16")), (),
    (("set", "u8"), ("button", "u16"), ("flags", "u16")),
    ButtonMatrixButtonFlags, False, True,
    "Clears (0) or sets (1) flags of a button: 8 hidden, 32 disabled, 64 checkable, 128 checked.", chooses=2)


class ButtonMatrixFlags(NamedTuple):
    set: int
    flags: int


BUTTON_MATRIX_FLAGS: Row[ButtonMatrixFlags] = Row(
    "button_matrix.flags", bytes.fromhex("B2 16 02"),
    (("view", "u16"), ("control", "u16")), (),
    (("set", "u8"), ("flags", "u16")),
    ButtonMatrixFlags, False, True,
    "Clears (0) or sets (1) flags of all buttons.", chooses=1)

BUTTON_MATRIX_HAS_FLAGS: Row[int] = Row(
    "button_matrix.has_flags", bytes.fromhex("B2 16 03"),
    (("view", "u16"), ("control", "u16")), (("button", "u16"), ("flags", "u16")),
    (("has", "u8"),),
    int, True, False,
    "Whether a button has all of these flags.")


class ButtonMatrixWidth(NamedTuple):
    width: int
    button: int


BUTTON_MATRIX_WIDTH: Row[ButtonMatrixWidth] = Row(
    "button_matrix.width", bytes.fromhex("B2 16 04"),
    (("view", "u16"), ("control", "u16")), (),
    (("width", "u8"), ("button", "u16")),
    ButtonMatrixWidth, False, True,
    "Makes a button 1 to 7 times as wide as others of its row.")

BUTTON_MATRIX_ONE_CHECKED: Row[int] = Row(
    "button_matrix.one_checked", bytes.fromhex("B2 16 05"),
    (("view", "u16"), ("control", "u16")), (),
    (("on", "u8"),),
    int, True, True,
    "Whether checking a button unchecks the others.")

BUTTON_MATRIX_CLICKED: Row[int] = Row(
    "button_matrix.clicked", bytes.fromhex("B2 16 06"),
    (("view", "u16"), ("control", "u16")), (),
    (("button", "u16"),),
    int, True, True,
    "The button pressed last, counted from 0; 65535 for none.")

BUTTON_MATRIX_CLICKED_TEXT: Row[str] = Row(
    "button_matrix.clicked_text", bytes.fromhex("B2 16 07"),
    (("view", "u16"), ("control", "u16")), (),
    (("text", "text"),),
    str, True, False,
    "The caption of the button pressed last.")

CHART_COLOR: Row[int] = Row(
    "chart.color", bytes.fromhex("B2 17 00"),
    (("view", "u16"), ("control", "u16")), (("series", "u8"),),
    (("rgb", "u32"),),
    int, False, True,
    "Colour of a series, 0xRRGGBB; adds the series up to this one, 0 to 15, if the chart lacks them.")

CHART_NEXT: Row[int] = Row(
    "chart.next", bytes.fromhex("B2 17 01"),
    (("view", "u16"), ("control", "u16")), (("series", "u8"),),
    (("value", "s16"),),
    int, False, True,
    "Adds a value to a series.", chooses=None)

CHART_POINT: Row[int] = Row(
    "chart.point", bytes.fromhex("B2 17 02"),
    (("view", "u16"), ("control", "u16")), (("series", "u8"), ("point", "u16")),
    (("value", "s16"),),
    int, False, True,
    "Sets a point of a series, counted from 0.")


class ChartRange(NamedTuple):
    min: int
    max: int


CHART_RANGE: Row[ChartRange] = Row(
    "chart.range", bytes.fromhex("B2 17 03"),
    (("view", "u16"), ("control", "u16")), (("axis", "u8"),),
    (("min", "s16"), ("max", "s16")),
    ChartRange, False, True,
    "The values at both ends of an axis: 0 upwards, 1 sideways.")

CHART_CLEAR: Row[int] = Row(
    "chart.clear", bytes.fromhex("B2 17 04"),
    (("view", "u16"), ("control", "u16")), (),
    (("series", "u8"),),
    int, False, True,
    "Removes the values of a series, which stays.", chooses=None)


class EventKind(enum.IntEnum):
    """The kinds of events, in `control.event`."""

    STATE = 0  # no event: the answer to a read
    CLICKED = 1  # pressed and released
    LONG_PRESSED = 2  # held down
    CHANGED = 3  # the user has changed the value
    READY = 4  # Enter, in a keyboard or a text box of one line
    CANCEL = 5  # the key that closes a keyboard
    FOCUSED = 6  # touched, or reached by keys
    VIEW = 7  # a view is shown; the control is 0, the number its layer, the text its file
    LANGUAGE = 8  # another language; view and control are 0, the text is its name

# rows: end
