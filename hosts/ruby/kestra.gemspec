# frozen_string_literal: true

declaraciones = File.read(File.expand_path('lib/kestra/declaraciones.rb', __dir__), encoding: 'UTF-8')

Gem::Specification.new do |gema|
  gema.name = 'kestra'
  gema.version = declaraciones[/^# Kestra (\d+\.\d+\.\d+):/, 1]
  gema.summary = 'Impresoras fiscales de la Argentina'
  gema.authors = ['Kestra']
  gema.files = Dir.glob('lib/**/*.rb', base: __dir__) + %w[README.md tienda.rb]
  gema.required_ruby_version = '>= 3.0'
end
