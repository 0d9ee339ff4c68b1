// An edge that is dragged, or moved by arrow keys; a double click closes or opens what is beside it.
interface Props {
    name: string;
    vertical: boolean; // the edge runs down
    value: number;
    low: number;
    high: number;
    sign: 1 | -1; // 1 if moving right or down makes it larger
    onChange: (value: number) => void;
    onClose?: () => void;
    class: string;
}

export function Split(props: Props) {
    const set = (value: number): void => props.onChange(Math.round(Math.max(props.low, Math.min(props.high, value))));
    const down = (event: PointerEvent): void => {
        const edge = event.currentTarget as HTMLElement;
        const start = props.vertical ? event.clientX : event.clientY;
        const before = props.value;
        edge.setPointerCapture(event.pointerId);
        edge.onpointermove = (move) =>
            set(before + props.sign * ((props.vertical ? move.clientX : move.clientY) - start));
        edge.onpointerup = () => (edge.onpointermove = null);
        event.preventDefault();
    };
    return (
        <div
            class={`split ${props.class}`}
            role="separator"
            tabIndex={0}
            aria-label={props.name}
            aria-orientation={props.vertical ? 'vertical' : 'horizontal'}
            aria-valuenow={props.value}
            aria-valuemin={props.low}
            aria-valuemax={props.high}
            onPointerDown={down}
            onDblClick={props.onClose}
            onKeyDown={(event) => {
                const keys = props.vertical ? ['ArrowLeft', 'ArrowRight'] : ['ArrowUp', 'ArrowDown'];
                const at = keys.indexOf(event.key);
                if (at >= 0) {
                    set(props.value + props.sign * (at ? 8 : -8));
                    event.preventDefault();
                }
            }}
        />
    );
}
