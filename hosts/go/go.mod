module kestra

go 1.19
