// What keys, and arguments of actions, may be. Written by the target `protocol` from the catalogue.
export type KindName =
    | 'number'
    | 'bool'
    | 'switch'
    | 'text'
    | 'words'
    | 'colour'
    | 'opacity'
    | 'length'
    | 'angle'
    | 'percentage'
    | 'time'
    | 'choice'
    | 'sum'
    | 'font'
    | 'picture'
    | 'folder'
    | 'sound'
    | 'clip'
    | 'control'
    | 'view'
    | 'file'
    | 'language'
    | 'theme'
    | 'look'
    | 'options'
    | 'action'
    | 'object'
    | 'array';
export type JsonName = 'number' | 'bool' | 'text' | 'object' | 'array';
export type GroupName = 'content' | 'value' | 'place' | 'touch' | 'look' | 'motion' | 'host';
export type ArgumentName = 'view' | 'slide' | 'language' | 'theme' | 'control' | 'field' | 'number' | 'text';
