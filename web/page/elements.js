// Makes the nodes of the page. Whatever comes from outside becomes a text node or the value of an attribute,
// so that nothing of it is ever read as markup.

/**
 * An element. A function is a listener ("onclick"); null, undefined and false leave an attribute out; a string
 * or a number among the children is text.
 */
export function element(name, attributes, ...children) {
    const node = document.createElement(name);
    for (const [key, value] of Object.entries(attributes ?? {})) {
        if (typeof value === 'function') node.addEventListener(key.slice(2), value);
        else if (value !== null && value !== undefined && value !== false)
            node.setAttribute(key, value === true ? '' : value);
    }
    append(node, children);
    return node;
}

function append(node, children) {
    for (const child of children) {
        if (Array.isArray(child)) append(node, child);
        else if (child !== null && child !== undefined && child !== false) node.append(child);
    }
}

/** Puts other children in place of those that are there. */
export function fill(node, ...children) {
    node.replaceChildren();
    append(node, children);
}

/** Sets the text only where it is another, as a new one costs a layout. */
export function say(node, text) {
    if (node.textContent !== text) node.textContent = text;
}

/** Text for screen readers alone. */
export function unseen(text) {
    return element('span', { class: 'unseen' }, text);
}

/**
 * Brings the children of a node, after `fixed` others, in line with items: those with the same signature stay,
 * others are made anew. While somebody types a PDU all but its end stays.
 */
export function reconcile(node, items, signatureOf, make, fixed = 0) {
    items.forEach((item, index) => {
        const signature = signatureOf(item, index);
        const old = node.children[fixed + index];
        if (old?.signature === signature) return;
        const made = make(item, index);
        made.signature = signature;
        if (old) old.replaceWith(made);
        else node.append(made);
    });
    while (node.children.length > fixed + items.length) node.lastChild.remove();
}
