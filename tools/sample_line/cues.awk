# Turns the sounds of a spoken line, "name:end in seconds" in one row, into mouth cues.

BEGIN {
    put("X", "pau")                                     # at rest
    put("A", "m b p")                                   # lips closed
    put("C", "eh ae ey ah ax hh")                       # open
    put("D", "aa ay aw")                                # wide open
    put("E", "ao ow oy er r uh")                        # rounded
    put("F", "w uw")                                    # puckered
    put("G", "f v")                                     # teeth on the lip
    put("H", "l")                                       # tongue up
    other = "B"                                         # teeth together: all the others
    shortest = 0.04                                     # seconds that a shape must last to be seen
}

{
    start = 0
    for (i = 1; i <= NF; ++i) {
        split($i, part, ":")
        shape = part[1] in shapes ? shapes[part[1]] : other
        end = part[2] < seconds ? part[2] : seconds
        if (count > 0 && cues[count] == shape)
            ends[count] = end
        else if (end - start >= shortest) {
            ++count
            cues[count] = shape
            starts[count] = start
            ends[count] = end
        } else
            continue                                    # the mouth is on its way to the next one
        start = end
    }
    ends[count] = seconds
}

END {
    printf "{\n  \"metadata\": {\n    \"text\": \"%s\",\n", line
    printf "    \"soundFile\": \"%s\",\n    \"duration\": %.1f\n  },\n  \"mouthCues\": [\n", sound, seconds
    for (i = 1; i <= count; ++i)
        printf "    { \"start\": %.2f, \"end\": %.2f, \"value\": \"%s\" }%s\n",
            starts[i], ends[i], cues[i], i < count ? "," : ""
    printf "  ]\n}\n"
}

function put(shape, names,    list, n, i) {
    n = split(names, list, " ")
    for (i = 1; i <= n; ++i)
        shapes[list[i]] = shape
}
