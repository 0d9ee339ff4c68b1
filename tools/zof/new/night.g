{
    "colors": {
        "page": "#0E1318", "card": "#1A222B", "ink": "#EDF2F7", "faint": "#9CAAB8", "line": "#394653",
        "accent": "#45C4CC", "on_accent": "#06252A", "pressed": "#2B9BA3", "mark": "#2FA9B1"
    }
}
