// What page and program say to each other over the one WebSocket, /socket?token=...
//
// The page sends requests, {id, do, ...}; the program answers each, in order, with {id, ok: true, ...} or
// {id, ok: false, error}. Events have no id. Pictures are binary messages, see FrameHead.
// A file is named by its path below the project folder, "config/view/home.g". A path inside a file is that of the checker:
// "controls[3].property.pub_t.pt.x". Boxes are x, y, width, height in pixels of the panel.

export type Json = null | boolean | number | string | Json[] | { [key: string]: Json };
export type Box = [x: number, y: number, width: number, height: number];

/** A picture: this head (8 numbers of 32 bits, little endian), then the pixels of the rectangle, RGBA, row by row. */
export const FRAME_HEAD_BYTES = 32;
export interface FrameHead {
    kind: number; // 1: the canvas; 2: a picture that was asked for, see "tile"
    number: number; // of the frame, or of the request
    x: number;
    y: number;
    width: number;
    height: number;
    fullWidth: number; // of the whole picture; when it differs from that before, the picture starts again
    fullHeight: number;
}

// ---- the project

export interface View {
    id: number;
    name: string; // "home"
    file: string; // "config/view/home.g"
}

export interface Project {
    dir: string; // as shown to people; ends with "/"
    name: string;
    width: number;
    height: number;
    views: View[];
    languages: string[];
    themes: string[];
    fonts: string[]; // files of font/, image/, sound/, video/
    pictures: string[];
    sounds: string[];
    clips: string[];
    looks: { name: string; file: string }[]; // a theme's file may have a look of the project again
    colours: { name: string; value: string; file: string; path: string }[]; // of looks: "accent", "#D9863D"
}

/** What the canvas shows. */
export interface Shown {
    view: string;
    language: string;
    theme: string;
    mode: 'design' | 'run' | 'live';
}

/** A folder without a project. */
export interface Empty {
    dir: string;
    name: string; // that a project there would have
    templates: string[];
}

/** How a new project begins. */
export interface Draft {
    name: string;
    template: string;
    panelWidth: number;
    panelHeight: number;
    languages: string[]; // the first one at start
    baud: number; // of the serial link to a host; 0: none
    program: boolean; // a program in C and its build
}

// ---- what is drawn

/** A control as it is drawn. Front-most last, as in the file. */
export interface Control {
    path: string; // "home/brew"; "home/#12" if the name is missing or not unique
    type: string; // "button"
    id: number;
    parent?: string; // the path of its parent, if that is a control
    view: number;
    box: Box;
    state: string; // "default", "pressed+checked"
    visible: boolean;
    touch: boolean;
    text?: string;
    row?: string; // of the serial protocol, with its main value: "slider.value"
    place?: { file: string; line: number; column: number; key: string }; // key: "controls[3]"
    styles: { file: string; line: number; column: number; part: number; state: number; look?: string }[];
}

/** Sent after each frame that may have changed it. */
export interface TreeEvent {
    event: 'tree';
    number: number; // of the frame that it belongs to
    shown: Shown;
    controls: Control[];
}

// ---- files and edits

/** One value in a file, for forms. */
export interface Value {
    path: string; // below the asked one: "pub_t.pt.x"
    kind: 'object' | 'array' | 'text' | 'number' | 'bool' | 'null';
    raw: string; // the bytes of the file; of objects and arrays empty
    line: number;
    column: number;
}

/** One change, by path. Only the bytes of that value change. */
export type Edit =
    // Sets a value; missing objects on the way are made, keys go where the catalogue's order puts them. If a name or a colour
    // ("pressed", "#D9863D") stands there, and the new value has one, it is written in that form. `id` is that of the
    // control at the beginning of the path, which is found again if others were added or deleted meanwhile.
    | { file: string; path: string; value: Json; id?: number }
    // Takes a key or an element out.
    | { file: string; path: string; remove: true }
    // Puts an element before the one at `path`, "controls[3]"; an index equal to the count appends.
    | { file: string; path: string; insert: Json }
    // Moves an element, with its bytes, before the one with this index; the count moves it to the end.
    | { file: string; path: string; move: number }
    // Replaces bytes (of UTF-8). `hash` is that of the text they were read from.
    | { file: string; hash: string; at: number; end: number; text: string }
    // Makes or deletes a whole file.
    | { file: string; create: string }
    | { file: string; delete: true };

/** One line of the diff, for the last line of the window and the list of changes. */
export interface Change {
    file: string;
    line: number;
    column: number;
    path: string; // "" if not known
    before: string; // "14255677"; empty for an addition
    after: string;
}

export interface Gesture {
    number: number; // 1, 2, ...
    label: string; // "Move brew"
    source: 'page' | 'elsewhere';
    time: number; // ms since 1970
    undone: boolean;
    changes: Change[];
}

export interface UndoState {
    undo: string; // the label of what would be undone; empty for nothing
    redo: string;
    saved: boolean;
    error: string; // why the files could not be written; edits wait in memory
}

/** A file has another text, by an edit, an undo or from elsewhere. */
export interface FileEvent {
    event: 'file';
    file: string;
    hash: string;
    deleted?: boolean;
    gesture?: Gesture; // what changed it; absent for changes that are not part of the list
    cause: 'edit' | 'undo' | 'redo' | 'elsewhere';
    origin: number; // the number of the page that asked, see Hello; 0 for none
    undo: UndoState;
}

// ---- problems

export interface Fix {
    label: string; // Write "width"
    sure: boolean; // one sure answer, taken by "Fix all"
    edits: Edit[];
    changes: Change[]; // as a preview
}

export interface Problem {
    rule: string;
    error: boolean;
    file: string;
    line: number;
    column: number;
    key: string; // path in the file
    text: string;
    view?: string; // view and control that it is about, if any
    control?: string; // "home/brew"
    box?: Box; // where the control is or would be
    fixes: Fix[];
}

export interface ProblemsEvent {
    event: 'problems';
    problems: Problem[];
    ms: number; // that the check took
    drawn: boolean; // the findings of drawing all views are among them
}

// ---- texts

export interface TextCell {
    text: string | null; // null: the language lacks the key
    needs?: [number, number]; // width and height it needs, and has, where it is drawn
    has?: [number, number];
    missing?: string; // letters that no font has
    tile?: number; // number of the picture of the text as drawn, see "tile"
}

export interface TextRow {
    key: string;
    uses: string[]; // paths of controls
    cells: { [language: string]: TextCell };
}

// ---- pictures and fonts

export interface Asset {
    name: string; // below its folder
    bytes: number;
    width?: number; // of a picture that can be shown as a still one
    height?: number;
    uses: { file: string; line: number; column: number }[];
    sizes: number[]; // in which a font is used
}

// ---- values of a panel that runs

/** What a control stands at, and who wrote that last; nobody has since the start if `by` is absent. */
export interface Written {
    control: string;
    row: string; // of the serial protocol: "label.text"
    takes: 'text' | 'number' | ''; // the one value that the row can be written with, if it is one
    number: number;
    text: string;
    by?: 'host' | 'user' | 'inspector' | 'program';
    age?: number; // ms since the last write
    count?: number; // of writes
}

// ---- requests

export interface Requests {
    // First of all. `page` is the number of this page. Without a project there is only `empty`.
    hello: {
        args: object;
        reply: { page: number; empty?: Empty; project?: Project; shown?: Shown; undo?: UndoState; version?: string };
    };
    // In a folder without a project: draws what would be made, see "tile", and makes it.
    draft: {
        args: Draft & { tile: number; width: number; height: number };
        reply: { files: { name: string; lines: number }[] };
    };
    make: { args: Draft; reply: object };
    show: { args: { view?: string; language?: string; theme?: string }; reply: object };
    // Run: the player has real time, takes the pointer and keys, and reports what happens.
    mode: { args: { mode: 'design' | 'run' | 'live'; address?: string }; reply: object };

    source: { args: { file: string }; reply: { text: string; hash: string } };
    // The values of an object and of all in it.
    read: { args: { file: string; path: string }; reply: { values: Value[] } };
    // `merge`: edits with the same label and this key within 500 ms are one step of undo.
    edit: { args: { label: string; merge?: string; edits: Edit[] }; reply: { gesture: Gesture } };
    // Shows edits without writing them. Each replaces the last one; without edits the files are shown again. Only the newest
    // matters: the reply comes when its frame has been sent.
    try: { args: { edits: Edit[] }; reply: object };
    undo: { args: object; reply: { gesture: Gesture } };
    redo: { args: object; reply: { gesture: Gesture } };
    // Puts back what stood before one gesture, while later ones stay.
    takeBack: { args: { number: number }; reply: { gesture: Gesture } };
    save: { args: object; reply: object }; // writes again what could not be written
    changes: { args: object; reply: { gestures: Gesture[] } };

    // Operations on controls, each one step of undo. Controls are paths as in the tree.
    // The new control has the catalogue's form of its type, a name such as "button_2" and the smallest free id.
    // `try` shows it without writing it, as the request "try".
    add: {
        args: {
            view: string;
            type: string;
            parent?: string;
            x: number;
            y: number;
            width?: number;
            height?: number;
            try?: boolean;
        };
        reply: { gesture: Gesture; control: string };
    };
    duplicate: {
        args: { controls: string[]; dx: number; dy: number };
        reply: { gesture: Gesture; controls: string[] };
    };
    // The JSON text of controls, for the clipboard.
    copy: { args: { controls: string[] }; reply: { text: string } };
    paste: { args: { view: string; text: string; parent?: string }; reply: { gesture: Gesture; controls: string[] } };
    delete: { args: { controls: string[] }; reply: { gesture: Gesture; uses: string[] } };
    // Order among siblings, or another parent ("" for the view), before the sibling `before` ("" for the end). Keeps its place
    // on the screen.
    reorder: { args: { control: string; parent: string; before: string }; reply: { gesture: Gesture } };
    // Puts controls of one container into a new one that cannot be seen. `dx` and `dy` lead from the first one's corner to that
    // of the new one.
    group: {
        args: { controls: string[]; dx: number; dy: number; width: number; height: number };
        reply: { gesture: Gesture; control: string };
    };
    // `uses` are places in C code and scripts of the folder that name it, "main.c:24".
    rename: { args: { control: string; name: string }; reply: { gesture: Gesture; control: string; uses: string[] } };

    // Views: `view` is the one that is copied, with its controls or without, renamed or deleted. `uses` are actions that name it.
    viewAdd: { args: { view: string; name: string; copy: boolean }; reply: { gesture: Gesture } };
    viewRename: { args: { view: string; name: string }; reply: { gesture: Gesture } };
    viewDelete: { args: { view: string }; reply: { gesture: Gesture; uses: string[] } };

    // States of a control in the picture only: "pressed+checked"; "default" clears them.
    state: { args: { control: string; state: string }; reply: object };
    // The controls at a place, the topmost first.
    hit: { args: { x: number; y: number }; reply: { controls: Control[] } };
    // A picture of a view, scaled to fit; comes as a binary message of kind 2 with the number `tile`.
    tile: {
        args: {
            tile: number;
            view: string;
            language?: string;
            theme?: string;
            control?: string;
            state?: string;
            trim?: boolean; // the plain space around what is drawn is cut if the control is larger than the picture
            width: number;
            height: number;
        };
        reply: object;
    };
    texts: { args: object; reply: { rows: TextRow[] } };
    assets: { args: { folder: 'image' | 'font' }; reply: { rows: Asset[] } };
    // A picture of image/, and a line of text in a font; they come as "tile" does.
    asset: { args: { tile: number; name: string; width: number; height: number }; reply: object };
    specimen: {
        args: {
            tile: number;
            name: string;
            size: number;
            text: string;
            dark: boolean;
            width: number;
            height: number;
        };
        reply: object;
    };
    // Writes a new file in the folder; `data` is base64.
    import: { args: { folder: 'image' | 'font'; name: string; data: string }; reply: object };
    check: { args: object; reply: object }; // answered by a problems event

    // Run mode.
    pointer: { args: { x: number; y: number; down: boolean }; reply: object };
    key: { args: { key: number; down: boolean }; reply: object };
    set: { args: { control?: string; row: string; value?: Json; request?: Json }; reply: object };
    mark: { args: { control: string }; reply: object }; // draws a frame around it on the panel for a while
}

export type Events =
    | TreeEvent
    | FileEvent
    | ProblemsEvent
    | { event: 'project'; project: Project } // views, languages, files, ... have changed
    | { event: 'shown'; shown: Shown } // another view, language, theme or mode
    // What could not be written is written again every second, and is written now, or fails for another reason.
    | { event: 'saved'; undo: UndoState }
    // The runtime's process: it works; it starts (again); it stopped. `note` says why.
    | { event: 'runtime'; state: 'runs' | 'starts' | 'stopped'; note: string; ms: number }
    // A fault in a file that the runtime reported while it drew.
    | { event: 'message'; file: string; line: number; column: number; key: string; text: string; broken?: boolean }
    // Run and Live: values that were written; `all` replaces those known before.
    | { event: 'values'; all: boolean; values: Written[] }
    // Run and Live: what the user did.
    | { event: 'touched'; time: number; control: string; what: string; value?: number; text?: string };
