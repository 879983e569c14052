# Plots a light curve table, which the output word "mag" makes, with one colour for each object and bright
# above faint.
#
#   gnuplot -c plot_light_curve.gp <table> <picture> [<column>]
#   gnuplot -c plot_light_curve.gp out/K88_20240120.mag.txt out/light_curve.png
#
# The picture is a PNG, or an SVG where its name ends in ".svg". The column is "apparent" where none is named,
# or one of "ensemble", "instrumental", "instr1000km" and "instrComp".

columns = 'apparent ensemble instrumental instr1000km instrComp'

if (ARGC < 2) {
    exit error "usage: gnuplot -c plot_light_curve.gp <table> <picture> [<column>]"
}
table = ARG1
picture = ARG2
brightness = (ARGC > 2) ? ARG3 : 'apparent'

magnitude = 0
do for [i = 1:words(columns)] {
    if (word(columns, i) eq brightness) {
        magnitude = i + 1
    }
}
if (magnitude == 0) {
    exit error sprintf("%s: no such column; there are %s", brightness, columns)
}

set datafile separator tab
object = 7
unixTime(julianDate) = (julianDate - 2440587.5) * 86400

# The objects in the order of the table, each once. Names may hold blanks, so tabs separate them.
names = "\t"
note(name) = (strstrt(names, "\t".name."\t") ? names : (names = names.name."\t"), 0)
stats table skip 1 using (note(strcol(object))) nooutput
stats table skip 1 using (unixTime($1)) name 'time' nooutput
stats table skip 1 using magnitude name 'mag' nooutput

count = 0
do for [i = 2:strlen(names)] {
    count = count + (names[i:i] eq "\t")
}
if (count == 0) {
    exit error sprintf("%s: not a mark in it", table)
}
array objects[count]
rest = names[2:*]
do for [i = 1:count] {
    end = strstrt(rest, "\t")
    objects[i] = rest[1:end - 1]
    rest = rest[end + 1:*]
}

if (strlen(picture) > 4 && picture[strlen(picture) - 3:*] eq '.svg') {
    set terminal svg size 900,540 font 'sans,14' background 'white'
} else {
    set terminal pngcairo size 900,540 font 'sans,12' background 'white'
}
set output picture

minute = 60
day = 86400
span = time_max - time_min
if (span < 2 * day) {
    set xtics time format (span < 20 * minute) ? '%H:%M:%S' : '%H:%M'
    set xlabel sprintf('UTC, from %s on', strftime('%Y-%m-%d', time_min))
} else {
    set xtics time format '%Y-%m-%d' rotate by -30
    set xlabel 'UTC'
}
# A little room beside the first and the last point, also where all have one time or one magnitude.
room = (span > 0) ? 0.03 * span : minute
set xrange [time_min - room:time_max + room]
room = (mag_max > mag_min) ? 0.06 * (mag_max - mag_min) : 0.5
set yrange [mag_max + room:mag_min - room] # upside down: a smaller magnitude is brighter
set ylabel sprintf('%s magnitude', brightness)
set grid linetype 1 linewidth 0.5 linecolor rgb '#d8d8d8'
set border linecolor rgb '#606060'

# Seven colours that people with colour blindness can distinguish, and with each round another point.
array colours[7] = ['#0072b2', '#d55e00', '#009e73', '#cc79a7', '#56b4e9', '#e69f00', '#000000']
array points[4] = [7, 5, 9, 13]
colour(i) = colours[(i - 1) % |colours| + 1]
point(i) = points[((i - 1) / |colours|) % |points| + 1]

if (count == 1) {
    set title objects[1] noenhanced
    unset key
} else {
    set key noenhanced outside right top Left reverse samplen 1
}
plot for [i = 1:count] table skip 1 \
    using (strcol(object) eq objects[i] ? unixTime($1) : NaN):magnitude \
    with points pointtype point(i) pointsize 0.7 linecolor rgb colour(i) title objects[i]
