# Draws the most frequent phrases of a folder of texts:
#     Rscript phrases.R FOLDER PLOT.svg [OPTION of korv-count...]
arguments <- commandArgs(trailingOnly = TRUE)
if (length(arguments) < 2) stop("phrases.R FOLDER PLOT.svg [OPTION of korv-count...]")
bars <- 20

table <- tempfile(fileext = ".csv")
options <- c(arguments[1], "--quiet", "--columns", "phrase,frequency,files", "--top", bars,
             arguments[-(1:2)], "-o", table)
status <- system2("korv-count", shQuote(options))
if (status != 0) quit(status = status) # korv-count has said why.
rows <- read.csv(table, encoding = "UTF-8", stringsAsFactors = FALSE)
unlink(table)

svg(arguments[2], width = 9, height = 1 + 0.3 * max(nrow(rows), 1))
par(mar = c(2, 18, 1, 8))
if (nrow(rows) > 0) {
  shown <- rows[rev(seq_len(nrow(rows))), ]
  places <- barplot(shown$frequency, names.arg = shown$phrase, horiz = TRUE, las = 1, col = "#3b6ea5", border = NA)
  text(shown$frequency, places, paste(shown$frequency, "in", shown$files, ifelse(shown$files == 1, "file", "files")),
       pos = 4, xpd = TRUE)
} else {
  plot.new()
}
invisible(dev.off())
cat(nrow(rows), "phrases drawn in", arguments[2], "\n")
